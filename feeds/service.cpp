#include "feeds/service.h"

#include <algorithm>
#include <vector>

#include "feeds/conditions.h"
#include "feeds/feeds.h"
#include "platform/events/resident_pages.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

constexpr std::size_t mostStartsAtOnce = 8;
constexpr const char* zoneFile = "/etc/localtime";

// Whether they differ in more than what the service itself or a pause changes.
bool isAnother(Feed a, const Feed& b) {
    a.isMade = b.isMade;
    a.isPaused = b.isPaused;
    return a != b;
}

bool mayRun(const Feed& feed) {
    return !(feed.pausesOnBattery && isOnBattery()) && !(feed.whenOnline && !isOnline());
}

}  // namespace

FeedService::FeedService(EventLoop& loop, const Platform& platform, std::function<void(const std::string&)> say)
    : loop_(loop),
      platform_(platform),
      say_(std::move(say)),
      timer_(loop, [this] { look(); }),
      configuration_(loop, {feedsFile(platform)}, [this] { reload(); }),
      zone_(loop, {zoneFile}, [this] { look(); }) {
    reload();
}

FeedService::~FeedService() {
    for (auto& [name, served] : feeds_)
        if (served.worker) served.worker->end();
    Statuses::write(statuses(), Statuses::Until::nextSession, platform_);
}

void FeedService::reload() {
    const auto feeds = readFeeds(platform_);
    const std::string trouble = feeds ? "" : feeds.failure().reason;
    if (!feeds && trouble != trouble_) say_(clauses(trouble, sentence("the feeds go on as they were")));
    trouble_ = trouble;
    if (!feeds) return;

    const FeedStatuses known = feeds_.empty() ? Statuses::read(platform_) : FeedStatuses();
    for (auto& [name, served] : feeds_) {
        served.isRemoved = std::ranges::find(*feeds, name, &Feed::name) == feeds->end();
        if (served.isRemoved && served.worker) served.worker->end();
    }
    std::erase_if(feeds_, [](const auto& each) { return each.second.isRemoved && !each.second.worker; });
    for (const Feed& feed : *feeds) serve(feed, known);
    look();
    Statuses::write(statuses(), Statuses::Until::endOfSession, platform_);
    releaseProgramPages();  // of starting and reading
}

void FeedService::serve(const Feed& feed, const FeedStatuses& known) {
    const auto [found, isNew] = feeds_.try_emplace(feed.name);
    Served& served = found->second;
    if (isNew) {
        if (const auto status = known.find(feed.name); status != known.end()) {
            served.status = status->second;
            served.planned = status->second.last;
        }
    } else if (isAnother(feed, served.feed)) {
        served.planned.reset();
        served.status.failures = 0;
    }
    served.feed = feed;
}

Date FeedService::due(const Served& served, Date now) const {
    if (!served.planned) return now;
    return Schedule::due(served.feed.every, *served.planned, served.status.failures, now, platform_.timeZone);
}

void FeedService::look() {
    const Date now = platform_.clock.now();
    std::optional<Date> next;
    std::vector<Served*> ready;
    bool isAnyWaiting = false;
    for (auto& [name, served] : feeds_) {
        if (!served.isIdle()) continue;
        Date date = due(served, now);
        if (date <= now) {
            served.isWaiting = !mayRun(served.feed);
            if (!served.isWaiting) {
                ready.push_back(&served);
                continue;
            }
            served.planned = Schedule::planned(served.feed.every, date, now);
            date = due(served, now);
        }
        isAnyWaiting = isAnyWaiting || served.isWaiting;
        next = std::min(next.value_or(date), date);
    }
    // Feeds with fewer failures go first, and new ones after others. Only a few start at once, so that what comes due
    // meanwhile doesn't wait for all of them.
    std::ranges::stable_sort(ready, {},
                             [](const Served* each) { return each->status.failures * 2 + !each->status.last; });
    if (ready.size() > mostStartsAtOnce) {
        ready.resize(mostStartsAtOnce);
        next = now;
    }
    for (Served* const served : ready) start(*served, now);
    if (next) timer_.set(*next);
    if (isAnyWaiting != (conditions_ != nullptr))
        conditions_ = isAnyWaiting ? std::make_unique<ConditionWatch>(loop_, [this] { conditionsChanged(); }) : nullptr;
}

void FeedService::conditionsChanged() {
    for (auto& [name, served] : feeds_)
        if (served.isWaiting && mayRun(served.feed)) served.planned.reset();
    look();
}

void FeedService::start(Served& served, Date now) {
    served.planned = Schedule::planned(served.feed.every, due(served, now), now);
    served.status.last = now;
    if (!served.status.news) served.status.news = now;
    const bool isTold = served.status.failures + 1 >= failuresUntilTold;
    served.worker = std::make_unique<Worker>(
        loop_, Worker::Order{served.feed, isTold ? served.status.news : std::nullopt}, platform_,
        [this, name = served.feed.name](const WorkerReport& report) { take(name, report); });
}

void FeedService::take(const std::string& name, const WorkerReport& report) {
    const auto found = feeds_.find(name);
    Served& served = found->second;
    served.worker.reset();
    if (served.isRemoved) {
        feeds_.erase(found);
        return;
    }
    FeedStatus& status = served.status;
    if (!report.isSkipped) {
        if (report.failure && report.failure != status.failure) say_(name + ": " + *report.failure);
        if (!report.failure && status.failure) say_(name + ": " + sentence("there is news again"));
        status.seconds = report.seconds;
        status.failure = report.failure;
        status.failures = report.failure ? status.failures + 1 : 0;
        if (!report.failure) status.news = platform_.clock.now();
    }
    look();
    Statuses::write(statuses(), Statuses::Until::endOfSession, platform_);
}

FeedStatuses FeedService::statuses() const {
    FeedStatuses all;
    const Date now = platform_.clock.now();
    for (const auto& [name, served] : feeds_) {
        if (served.isRemoved) continue;
        FeedStatus status = served.status;
        if (!served.feed.isPaused) status.next = due(served, now);
        all.emplace(name, std::move(status));
    }
    return all;
}

}  // namespace orvel
