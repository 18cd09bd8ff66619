#include "designer/feeds/feed_desk.h"

#include <algorithm>

#include "designer/feeds/feed_changes.h"
#include "feeds/feeds.h"
#include "feeds/service.h"
#include "feeds/status.h"
#include "platform/foundation/sole_process.h"

namespace orvel::designer {

FeedDesk::FeedDesk(EventLoop& loop, std::function<void()> changed, const Platform& platform)
    : platform_(platform),
      changed_(std::move(changed)),
      runs_(loop, [this] { changed_(); }),
      configuration_(loop, {feedsFile(platform)}, [this] { read(), changed_(); }),
      statuses_(loop, {Statuses::file(platform)}, [this] { readStatuses(), changed_(); }) {
    read();
    readStatuses();
}

std::string FeedDesk::json(const std::string& design) const {
    FeedsToShow shown{.news = news_, .isServed = findSole(FeedService::lockName).has_value(), .trouble = trouble_};
    std::ranges::copy_if(feeds_, std::back_inserter(shown.feeds),
                         [&](const Feed& feed) { return feed.design == design; });
    return feedsJson(shown, runs_);
}

Outcome<Done> FeedDesk::change(std::string_view operation, const std::string& name, std::string json,
                               const WidgetSpec& design) {
    Outcome<Done> done = Done{};
    if (operation == "put") {
        const auto put = putFeed(std::move(json), design, platform_);
        if (!put) return put.failure();
        if (std::ranges::find(feeds_, *put, &Feed::name) == feeds_.end()) done = runs_.start(*put);
    } else if (operation == "run") {
        done = runs_.start(name);
    } else if (operation == "pause") {
        done = pauseFeed(name, Pause::on, platform_);
    } else if (operation == "resume") {
        done = pauseFeed(name, Pause::off, platform_);
    } else if (operation == "remove") {
        done = removeFeed(name, platform_);
    } else {
        done = Failure{"there is nothing at this address", Failure::Cause::request};
    }
    read();
    changed_();
    return done;
}

void FeedDesk::read() {
    auto feeds = readFeeds(platform_);
    trouble_ = feeds ? "" : feeds.failure().reason;
    if (feeds) feeds_ = *std::move(feeds);
}

void FeedDesk::readStatuses() {
    for (const auto& [name, status] : Statuses::read(platform_)) news_[name].take(status);
}

}  // namespace orvel::designer
