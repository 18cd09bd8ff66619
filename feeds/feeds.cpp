#include "feeds/feeds.h"

#include <algorithm>

#include "authoring/keep_beside.h"
#include "feeds/feeds_json.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_position.h"
#include "platform/foundation/unicode.h"

namespace orvel {
namespace {

Failure unlike(const std::filesystem::path& file, const FileFailure& failure) {
    return {file.string() + ": " + failure.message()};
}

}  // namespace

std::filesystem::path feedsFile(const Platform& platform) {
    return std::filesystem::path(configurationDirectory(platform.accounts)) / "orvel" / "feeds.json";
}

Outcome<std::vector<Feed>> readFeeds(const Platform& platform) {
    const auto file = feedsFile(platform);
    const auto bytes = platform.files.read(file);
    if (!bytes) {
        if (bytes.failure().code == std::errc::no_such_file_or_directory) return std::vector<Feed>();
        return unlike(file, bytes.failure());
    }
    auto feeds = FeedsJSON::decode(*bytes);
    if (feeds) return *std::move(feeds);
    const auto& [reason, offset] = feeds.failure();
    return Failure{file.string() + ":" + textPosition(*bytes, offset).text() + ": " + reason, Failure::Cause::content};
}

Outcome<Feed> findFeed(const std::vector<Feed>& feeds, const std::string& name) {
    const auto found = std::ranges::find(feeds, name, &Feed::name);
    if (found != feeds.end()) return *found;
    std::vector<std::string_view> names;
    for (const Feed& feed : feeds) names.push_back(feed.name);
    std::string hint = didYouMean(name, names);
    if (hint.empty()) hint = "; orvel feed list shows them";
    return Failure{"no feed is called \"" + unicode::onOneLine(name) + '"' + hint};
}

Outcome<std::optional<std::string>> changeFeeds(const std::function<Outcome<Done>(std::vector<Feed>&)>& change,
                                                const Platform& platform) {
    const auto file = feedsFile(platform);
    const auto folder = file.parent_path();
    if (const auto made = platform.files.createFolders(folder); !made) return unlike(folder, made.failure());
    const auto lock = platform.files.lock(folder);
    if (!lock) return unlike(folder, lock.failure());

    const auto read = readFeeds(platform);
    if (!read && read.failure().cause != Failure::Cause::content) return read.failure();
    std::vector<Feed> feeds = read ? *read : std::vector<Feed>();
    if (const auto changed = change(feeds); !changed) return changed.failure();
    if (read && feeds == *read) return std::optional<std::string>();

    const auto json = FeedsJSON::encode(feeds);
    if (!json) return Failure{"the feed can't be written as JSON: a text isn't UTF-8", Failure::Cause::request};
    std::optional<std::string> notice;
    if (!read) {
        const auto kept = keepBeside(file, Kept::invalid, platform);
        if (!kept) return kept.failure();
        notice = read.failure().reason + "; kept as " + *kept;
    }
    const auto written = platform.files.replace(file, *json, NewFile::ownerOnly);
    if (!written) return unlike(file, written.failure());
    if (written->unsynced) return doneForNow(unlike(file, *written->unsynced).reason);
    return notice;
}

}  // namespace orvel
