// Runs a person's feeds when they are due, and sleeps between.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "feeds/feed.h"
#include "feeds/status.h"
#include "feeds/worker.h"
#include "platform/events/event_loop.h"
#include "platform/events/path_watch.h"
#include "platform/events/timer.h"
#include "platform/foundation/platform.h"

namespace orvel {

class ConditionWatch;

class FeedService {
public:
    /// The name of the lock that keeps a session to one service.
    static constexpr const char* lockName = "orvel-feeds";
    /// After this many failures in a row, the design says since when there has been no news.
    static constexpr int failuresUntilTold = 3;

    /// Serves the feeds while it lives and the loop runs, and follows their configuration. `say` gets one line for each
    /// thing that a person should know.
    FeedService(EventLoop& loop, const Platform& platform, std::function<void(const std::string&)> say);
    /// Ends all runs.
    ~FeedService();

private:
    struct Served {
        Feed feed;
        FeedStatus status = {};
        std::optional<Date> planned = std::nullopt;  ///< what its last run counts as planned for
        std::unique_ptr<Worker> worker = nullptr;
        bool isRemoved = false;  ///< from the configuration; it is dropped when its worker has ended
        bool isWaiting = false;  ///< for power or a network

        bool isIdle() const { return !worker && !isRemoved && !feed.isPaused; }
    };

    void reload();
    void serve(const Feed& feed, const FeedStatuses& known);
    void look();
    void start(Served& served, Date now);
    void take(const std::string& name, const WorkerReport& report);
    void conditionsChanged();
    Date due(const Served& served, Date now) const;
    FeedStatuses statuses() const;

    EventLoop& loop_;
    const Platform& platform_;
    std::function<void(const std::string&)> say_;
    std::map<std::string, Served> feeds_;
    std::string trouble_;  ///< with the configuration
    ClockTimer timer_;
    PathWatch configuration_;
    PathWatch zone_;
    std::unique_ptr<ConditionWatch> conditions_;  ///< while a feed waits for one
};

}  // namespace orvel
