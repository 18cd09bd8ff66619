#include "feeds/status.h"

#include <cstdlib>

#include "platform/foundation/iso8601.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"

namespace orvel::Statuses {
namespace {

std::filesystem::path durableFile(const Platform& platform) {
    return std::filesystem::path(stateDirectory(platform.accounts)) / "orvel" / "feeds.json";
}

void writeDate(json::Writer& writer, const char* name, const std::optional<Date>& date) {
    if (date) writer.key(name).string(iso8601::format(*date));
}

bool take(std::string_view name, json::Value& value, FeedStatus& status) {
    if (value.kind() == json::Kind::number) {
        const double number = value.number().value_or(0);
        if (name == "seconds") status.seconds = number;
        if (name == "failures" && number >= 0 && number < 1e9) status.failures = static_cast<int>(number);
    } else if (value.kind() == json::Kind::string) {
        const std::string text(value.string().value_or(""));
        const auto date = iso8601::dateTime(text);
        if (name == "last") status.last = date;
        if (name == "failure") status.failure = text;
        if (name == "news") status.news = date;
        if (name == "next") status.next = date;
    }
    return true;
}

}  // namespace

std::filesystem::path file(const Platform& platform) {
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return folder && *folder == '/' ? std::filesystem::path(folder) / "orvel-feeds.json" : durableFile(platform);
}

std::string text(const FeedStatuses& statuses) {
    json::Writer writer;
    writer.beginObject();
    for (const auto& [name, status] : statuses) {
        writer.key(name).beginObject();
        writeDate(writer, "last", status.last);
        writer.key("seconds").number(status.seconds).key("failures").integer(status.failures);
        if (status.failure) writer.key("failure").string(*status.failure);
        writeDate(writer, "news", status.news);
        writeDate(writer, "next", status.next);
        writer.endObject();
    }
    return writer.endObject().finish().value_or("{}");
}

FeedStatuses fromText(const std::string& text) {
    FeedStatuses statuses;
    const auto syntax = json::read(text, [&](json::Value& value) {
        return value.members([&](std::string_view feed, json::Value& member) {
            FeedStatus& status = statuses[std::string(feed)];
            return member.members([&](std::string_view name, json::Value& field) { return take(name, field, status); });
        });
    });
    return syntax ? FeedStatuses() : statuses;
}

FeedStatuses read(const Platform& platform) {
    auto text = platform.files.read(file(platform));
    if (!text) text = platform.files.read(durableFile(platform));
    return text ? fromText(*text) : FeedStatuses();
}

void write(const FeedStatuses& statuses, Until until, const Platform& platform) {
    const std::string json = text(statuses);
    (void)platform.files.replace(file(platform), json, NewFile::ownerOnly);
    if (until == Until::endOfSession) return;
    const auto durable = durableFile(platform);
    if (platform.files.createFolders(durable.parent_path()))
        (void)platform.files.replace(durable, json, NewFile::ownerOnly);
}

}  // namespace orvel::Statuses
