#include "authoring/history.h"

#include <algorithm>

#include "model/widget_spec_json.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"
#include "platform/language/sentence.h"

namespace orvel::History {
namespace {

constexpr std::ptrdiff_t mostChanges = 100;
constexpr std::size_t mostBytes = std::size_t{16} << 20;

using Places = std::vector<Change::Place>;

void writePlaces(json::Writer& writer, std::string_view name, const Places& places) {
    writer.key(name).beginArray();
    for (const Change::Place& place : places) {
        writer.beginObject().key("index").integer(static_cast<long long>(place.index));
        if (place.sameId > 0) writer.key("sameId").integer(static_cast<long long>(place.sameId));
        writer.key("design");
        WidgetSpecJSON::write(writer, place.spec);
        writer.endObject();
    }
    writer.endArray();
}

bool readInto(json::Value& value, std::size_t& count) {
    const auto number = value.number();
    if (number && *number >= 0 && *number < 1e9) count = static_cast<std::size_t>(*number);
    return number.has_value();
}

bool readInto(json::Value& value, std::optional<WidgetSpec>& spec) {
    spec = WidgetSpecJSON::read(value);
    return spec.has_value();
}

bool readInto(json::Value& value, Places& places) {
    return value.elements([&](json::Value& element) {
        std::size_t index = 0;
        std::size_t sameId = 0;
        std::optional<WidgetSpec> spec;
        const bool isRead = element.members([&](std::string_view name, json::Value& member) {
            if (name == "index") return readInto(member, index);
            if (name == "sameId") return readInto(member, sameId);
            return name != "design" || readInto(member, spec);
        });
        if (!isRead || !spec) return false;
        places.push_back({index, *std::move(spec), sameId});
        return true;
    });
}

// Where the last line begins.
std::size_t lastLine(std::string_view text) {
    if (text.ends_with('\n')) text.remove_suffix(1);
    return text.rfind('\n') + 1;  // none: npos + 1 is 0
}

}  // namespace

std::filesystem::path file(const Platform& platform) {
    return std::filesystem::path(stateDirectory(platform.accounts)) / "orvel" / "history";
}

Outcome<std::string> read(const Platform& platform) {
    auto text = platform.files.read(file(platform));
    if (text) return *std::move(text);
    if (text.failure().code == std::errc::no_such_file_or_directory) return std::string();
    return Failure{file(platform).string() + ": " + text.failure().message()};
}

Outcome<Done> write(std::string_view text, const Platform& platform) {
    const auto path = file(platform);
    if (text.empty()) {
        const auto removed = platform.files.remove(path);
        if (removed || removed.failure().code == std::errc::no_such_file_or_directory) return Done{};
        return Failure{path.string() + ": " + removed.failure().message()};
    }
    const auto created = platform.files.createFolders(path.parent_path());
    if (!created) return Failure{path.parent_path().string() + ": " + created.failure().message()};
    const auto written = platform.files.replace(path, text, NewFile::ownerOnly);
    if (!written) return Failure{path.string() + ": " + written.failure().message()};
    return Done{};
}

std::optional<std::string> with(const Change& change, std::string text) {
    json::Writer writer;
    writer.beginObject().key("what").string(change.what);
    writePlaces(writer, "removed", change.removed);
    writePlaces(writer, "inserted", change.inserted);
    if (change.accepted) WidgetSpecJSON::write(writer.key("accepted"), *change.accepted);
    writer.endObject();
    const auto line = writer.finish();
    if (!line) return std::nullopt;

    if (!text.empty() && !text.ends_with('\n')) text += '\n';
    auto changes = std::ranges::count(text, '\n') + 1;
    std::size_t begin = 0;
    for (; begin < text.size() && (changes > mostChanges || text.size() - begin + line->size() > mostBytes); --changes)
        begin = text.find('\n', begin) + 1;
    return text.erase(0, begin) + *line + '\n';
}

Outcome<std::optional<Change>> last(std::string_view text) {
    if (text.empty()) return std::optional<Change>();
    Change change;
    bool isRead = false;
    const auto syntax = json::read(std::string(text.substr(lastLine(text))), [&](json::Value& value) {
        isRead = value.members([&](std::string_view name, json::Value& member) {
            if (name == "removed") return readInto(member, change.removed);
            if (name == "inserted") return readInto(member, change.inserted);
            if (name == "accepted") return readInto(member, change.accepted);
            if (name != "what") return true;
            const auto what = member.string();
            if (what) change.what = *what;
            return what.has_value();
        });
        return isRead;
    });
    if (syntax || !isRead) return Failure{sentence("the last line of the history isn't understood")};
    return std::optional(std::move(change));
}

std::string_view withoutLast(std::string_view text) {
    return text.substr(0, lastLine(text));
}

}  // namespace orvel::History
