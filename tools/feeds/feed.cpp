#include "tools/feeds/feed.h"

#include <algorithm>
#include <filesystem>
#include <functional>

#include "authoring/field_texts.h"
#include "feeds/design_update.h"
#include "feeds/feeds.h"
#include "feeds/run.h"
#include "feeds/service.h"
#include "platform/foundation/sole_process.h"
#include "platform/language/sentence.h"

namespace orvel::tools {
namespace {

Outcome<Done> change(const std::function<Outcome<Done>(std::vector<Feed>&)>& change, const Platform& platform,
                     Console& console) {
    const auto notice = changeFeeds(change, platform);
    if (!notice) return notice.failure();
    if (*notice) say(**notice, console);
    return Done{};
}

// The fields that a new design is to have make one, as far as can be told before there is output.
Outcome<Done> checkFirst(const Feed& feed, const Platform& platform) {
    WidgetSpec::Fields fields{.title = feed.name, .kind = {}};
    std::vector<Assignment> assignments;
    for (const std::string& text : feed.first) {
        const auto given = assignment(text);
        if (!given) return given.failure();
        assignments.push_back(*given);
    }
    if (const auto assigned = assign(assignments, fields, platform); !assigned) return assigned.failure();
    return Done{};
}

// Its line about no news goes with the feed, or with the design that it had until now.
void leaveDesign(const Feed& feed, const Platform& platform, Console& console) {
    if (const auto left = takeNoNewsBack(feed, platform); !left) warn(left.failure().reason, console);
}

}  // namespace

Outcome<Done> addFeed(const Feed& given, const Platform& platform, Console& console) {
    if (const std::string wrong = wrongFeedName(given.name); !wrong.empty())
        return Failure{wrong, Failure::Cause::request};
    if (const auto checked = checkFirst(given, platform); !checked) return checked.failure();
    Feed feed = given;
    // The service runs it elsewhere; a name without "/" is looked for in PATH.
    if (auto& program = feed.command.front(); program.find('/') != program.npos)
        program = std::filesystem::absolute(program).lexically_normal();
    const auto put = [&](std::vector<Feed>& feeds) -> Outcome<Done> {
        const auto same = std::ranges::find(feeds, feed.name, &Feed::name);
        if (same == feeds.end()) {
            feeds.push_back(feed);
            return Done{};
        }
        if (same->design != feed.design) leaveDesign(*same, platform, console);
        *same = feed;
        return Done{};
    };
    if (const auto changed = change(put, platform, console); !changed) return changed.failure();
    if (!findSole(FeedService::lockName))
        say(sentence("nothing serves your feeds yet; orvel desktop does, and so does orvel feeds, without cards"),
            console);
    return Done{};
}

Outcome<Done> runFeedOnce(const std::string& name, const Platform& platform, Console& console) {
    const auto feeds = readFeeds(platform);
    if (!feeds) return feeds.failure();
    auto feed = findFeed(*feeds, name);
    if (!feed) return feed.failure();
    feed->isMade = false;
    const FeedRun run = runFeed(*feed, platform);
    console.out << run.command.output << std::flush;
    console.err << run.command.errors << std::flush;
    if (run.failure) return Failure{name + ": " + *run.failure};
    return Done{};
}

Outcome<Done> pauseFeed(const std::string& name, bool isPaused, const Platform& platform, Console& console) {
    const auto set = [&](std::vector<Feed>& feeds) -> Outcome<Done> {
        if (const auto found = findFeed(feeds, name); !found) return found.failure();
        std::ranges::find(feeds, name, &Feed::name)->isPaused = isPaused;
        return Done{};
    };
    return change(set, platform, console);
}

Outcome<Done> removeFeed(const std::string& name, const Platform& platform, Console& console) {
    std::optional<Feed> removed;
    const auto take = [&](std::vector<Feed>& feeds) -> Outcome<Done> {
        const auto found = findFeed(feeds, name);
        if (!found) return found.failure();
        removed = *found;
        std::erase_if(feeds, [&](const Feed& feed) { return feed.name == name; });
        return Done{};
    };
    if (const auto taken = change(take, platform, console); !taken) return taken.failure();
    leaveDesign(*removed, platform, console);
    return Done{};
}

}  // namespace orvel::tools
