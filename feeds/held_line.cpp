#include "feeds/held_line.h"

#include "platform/foundation/iso8601.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"

namespace orvel::HeldLines {
namespace {

std::filesystem::path file(const std::string& feed, const Platform& platform) {
    return std::filesystem::path(stateDirectory(platform.accounts)) / "orvel" / "feeds" / (feed + ".json");
}

}  // namespace

std::optional<HeldLine> read(const std::string& feed, const Platform& platform) {
    const auto text = platform.files.read(file(feed, platform));
    if (!text) return std::nullopt;
    HeldLine held;
    const auto syntax = json::read(*text, [&](json::Value& value) {
        return value.members([&](std::string_view name, json::Value& member) {
            const auto given = member.kind() == json::Kind::string ? member.string() : std::nullopt;
            if (!given) return true;
            if (name == "since") held.since = iso8601::dateTime(*given).value_or(Date{});
            if (name == "line") held.line = *given;
            if (name == "former") held.former = *given;
            return true;
        });
    });
    if (syntax || held.line.empty()) return std::nullopt;
    return held;
}

Outcome<Done> write(const std::string& feed, const HeldLine& held, const Platform& platform) {
    const auto path = file(feed, platform);
    json::Writer writer;
    writer.beginObject().key("since").string(iso8601::format(held.since)).key("line").string(held.line);
    if (held.former) writer.key("former").string(*held.former);
    const auto json = writer.endObject().finish();
    if (!json) return Failure{sentence("the design's line isn't UTF-8")};
    if (const auto made = platform.files.createFolders(path.parent_path()); !made)
        return Failure{path.parent_path().string() + ": " + made.failure().message()};
    const auto written = platform.files.replace(path, *json, NewFile::ownerOnly);
    if (!written) return Failure{path.string() + ": " + written.failure().message()};
    return Done{};
}

void remove(const std::string& feed, const Platform& platform) {
    (void)platform.files.remove(file(feed, platform));
}

std::string text(Date since, const Platform& platform) {
    const std::string then = iso8601::format(localTime(since, platform.timeZone)).substr(0, 16);
    const bool isToday =
        iso8601::format(localTime(platform.clock.now(), platform.timeZone)).starts_with(then.substr(0, 10));
    // In the catalogue of the cards' texts: it stands on a card.
    const std::string pattern = GettextLocalizer(GettextLocalizer::installedDirectory()).lookUp("no news since {0}");
    return filled(pattern, {isToday ? then.substr(11) : then.substr(0, 10)});
}

}  // namespace orvel::HeldLines
