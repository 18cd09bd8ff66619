#include "tools/words.h"

#include <algorithm>

#include "platform/foundation/json_writer.h"
#include "tools/card_choices.h"
#include "tools/designs.h"
#include "tools/terminal.h"
#include "views/card_words.h"

namespace orvel::tools {
namespace {

constexpr const char* nothingStored = "Design one in Orvel";

std::string escapedForMarkup(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

void writeWords(json::Writer& writer, const WidgetSpec& spec, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    writer.beginObject().key("kind").string(rawValue(spec.kind)).key("title").string(words.title);
    if (words.headline) writer.key("headline").string(*words.headline);
    if (words.percent) writer.key("percent").integer(*words.percent);
    if (words.secondary) writer.key("secondary").string(*words.secondary);
    if (spec.kind == WidgetSpec::Kind::list) {
        writer.key("rows").beginArray();
        for (const auto& row : words.rows) writer.string(row);
        writer.endArray();
    }
    writer.endObject();
}

// The bar reads both texts as markup.
void writeForBar(json::Writer& writer, const std::optional<WidgetSpec>& spec, const Platform& platform) {
    writer.beginObject();
    if (!spec) {
        writer.key("text").string("").key("tooltip").string(nothingStored).key("class").string("empty").endObject();
        return;
    }
    const CardWords content = cardWords(*spec, platform);
    const bool isList = spec->kind == WidgetSpec::Kind::list;
    writer.key("text").string(escapedForMarkup(printable(isList ? spec->title : headlineWords(*spec, platform))));
    writer.key("tooltip").string(escapedForMarkup(words(*spec, platform)));
    writer.key("class").string(rawValue(spec->kind));
    if (content.percent) writer.key("percentage").integer(std::clamp<std::int64_t>(*content.percent, 0, 100));
    writer.endObject();
}

}  // namespace

std::string headlineWords(const WidgetSpec& spec, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    if (words.headline) return *words.headline;
    if (words.percent) return std::to_string(*words.percent) + "%";
    const std::size_t count = spec.items ? spec.items->size() : 0;
    return std::to_string(count) + (count == 1 ? " item" : " items");
}

std::string words(const WidgetSpec& spec, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    std::string text;
    const auto add = [&](const std::string& line) {
        if (line.empty()) return;
        if (!text.empty()) text += '\n';
        text += printable(line);
    };
    add(words.title);
    if (words.headline) add(*words.headline);
    if (words.percent) add(std::to_string(*words.percent) + "%");
    if (words.secondary) add(*words.secondary);
    for (const auto& row : words.rows) add(row);
    return text;
}

Outcome<Done> show(const std::optional<std::string>& design, WordsForm form, const Platform& platform,
                   Console& console) {
    const auto spec = shownDesign(design, platform, console);
    if (!spec) return spec.failure();
    if (form == WordsForm::text) {
        console.out << (*spec ? words(**spec, platform) : nothingStored) << '\n';
        return Done{};
    }
    json::Writer writer;
    if (form == WordsForm::waybar)
        writeForBar(writer, *spec, platform);
    else if (*spec)
        writeWords(writer, **spec, platform);
    else
        writer.null();
    const auto json = writer.finish();
    if (!json) return Failure{"the card can't be written as JSON"};
    console.out << *json << '\n';
    return Done{};
}

}  // namespace orvel::tools
