#include "bench/sample_store.h"

#include <array>
#include <cstdint>
#include <random>
#include <span>
#include <string_view>

#include "model/widget_spec.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/json_writer.h"

namespace orvel::bench {
namespace {

using Texts = std::span<const std::string_view>;

constexpr std::array<std::string_view, 10> titles{"Active users", "Reading goal", "Groceries",  "Crème de la crème",
                                                  "Uptime 24/7",  "Für später",   "To release", "今日の買い物",
                                                  "Дела на день", "Say \"hello\""};
constexpr std::array<std::string_view, 6> colors{"#0A84FF", "#30D158", "#FF9F0A", "#FFD60A", "#FF375F", "teal"};
constexpr std::array<std::string_view, 6> symbols{"flag.fill", "cart", "book.fill", "star", "bolt", "person.2.fill"};
constexpr std::array<std::string_view, 6> headlines{"42", "1,204", "98.5 %", "Less, but better", "3/4", "Très bien"};
constexpr std::array<std::string_view, 6> lines{
    "12 more than last week", "and/or", "every day", "größer", "one\ntwo", "🎉"};
constexpr std::array<std::string_view, 6> things{"Milk", "Bread", "Crème", "豆腐", "1/2 melon", "Tea"};

class Generator {
public:
    explicit Generator(json::Writer& writer) : writer_(writer) {}

    void addDesign() {
        const auto kind = WidgetSpec::allCases[below(WidgetSpec::allCases.size())];
        writer_.beginObject();
        writer_.key("id").string(identity());
        writer_.key("title").string(one(titles));
        writer_.key("kind").string(rawValue(kind));
        writer_.key("accentHex").string(one(colors));
        writer_.key("symbol").string(one(symbols));
        if (below(24) == 0) addUnknownMember();
        addOptionalMembers(kind);
        writer_.key("createdAt").number(instant().timeIntervalSinceReferenceDate);
        writer_.endObject();
    }

private:
    // Not a standard distribution: those differ between libraries.
    std::size_t below(std::size_t bound) { return random_() % bound; }
    std::string_view one(Texts texts) { return texts[below(texts.size())]; }

    std::string identity() {
        std::string id;
        for (int i = 0; i < 36; ++i)
            id += i == 8 || i == 13 || i == 18 || i == 23 ? '-' : "0123456789ABCDEF"[below(16)];
        return id;
    }

    // Whole and broken seconds, from 2024 on.
    Date instant() {
        const double seconds = 725846400.0 + static_cast<double>(below(60'000'000));
        return {below(2) == 0 ? seconds : seconds + static_cast<double>(below(1000)) / 1000};
    }

    void addOptionalMembers(WidgetSpec::Kind kind) {
        if (shows(kind, WidgetField::primary)) writer_.key("primary").string(one(headlines));
        if (shows(kind, WidgetField::progress)) writer_.key("progress").number(static_cast<double>(below(1001)) / 1000);
        if (shows(kind, WidgetField::targetISO8601)) writer_.key("targetISO8601").string(iso8601::format(instant()));
        if (shows(kind, WidgetField::items)) addItems();
        switch (below(6)) {
            case 0: writer_.key("secondary").string(one(lines)); break;
            case 1: writer_.key("secondary").null(); break;
            default: break;
        }
    }

    void addItems() {
        writer_.key("items").beginArray();
        for (std::size_t count = below(6); count > 0; --count) writer_.string(one(things));
        writer_.endArray();
    }

    void addUnknownMember() {
        writer_.key("pinned").beginObject().key("to").beginArray().integer(1).boolean(true).endArray().endObject();
    }

    json::Writer& writer_;
    std::mt19937 random_{20240229};
};

}  // namespace

std::string sampleStore(std::size_t designs) {
    json::Writer writer;
    writer.beginArray();
    Generator generator(writer);
    for (std::size_t i = 0; i < designs; ++i) generator.addDesign();
    return writer.endArray().finish().value();
}

}  // namespace orvel::bench
