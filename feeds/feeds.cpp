#include "feeds/feeds.h"

#include <algorithm>

#include "authoring/list_file.h"
#include "feeds/feeds_json.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

Outcome<std::string> encoded(const std::vector<Feed>& feeds) {
    auto json = FeedsJSON::encode(feeds);
    if (json) return *std::move(json);
    return Failure{sentence("the feed can't be written as JSON: a text isn't UTF-8"), Failure::Cause::request};
}

ListFile<Feed> listFile(const Platform& platform) {
    return {feedsFile(platform), FeedsJSON::decode, encoded, NewFile::ownerOnly};
}

}  // namespace

std::filesystem::path feedsFile(const Platform& platform) {
    return std::filesystem::path(configurationDirectory(platform.accounts)) / "orvel" / "feeds.json";
}

Outcome<std::vector<Feed>> readFeeds(const Platform& platform) {
    return listFile(platform).read(platform);
}

Outcome<Feed> findFeed(const std::vector<Feed>& feeds, const std::string& name) {
    const auto found = std::ranges::find(feeds, name, &Feed::name);
    if (found != feeds.end()) return *found;
    std::vector<std::string_view> names;
    for (const Feed& feed : feeds) names.push_back(feed.name);
    std::string hint = didYouMean(name, names);
    if (hint.empty()) hint = sentence("orvel feed list shows them");
    return Failure{clauses(sentence("no feed is called \"{0}\"", unicode::onOneLine(name)), hint)};
}

Outcome<std::optional<std::string>> changeFeeds(const std::function<Outcome<Done>(std::vector<Feed>&)>& change,
                                                const Platform& platform) {
    return listFile(platform).change(change, platform);
}

}  // namespace orvel
