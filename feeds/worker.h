// One run of a feed in a process of its own, so that nothing that it waits for holds up the others, and the memory that
// it takes goes with it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "feeds/feed.h"
#include "platform/events/event_loop.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct WorkerReport {
    double seconds = 0;
    std::optional<std::string> failure = std::nullopt;
    bool isSkipped = false;
};

class Worker {
public:
    struct Order {
        Feed feed;
        std::optional<Date> lastNews;  ///< when a failure is to tell the design since when there is none
    };

    /// `ended` is called once, and may destroy the worker.
    Worker(EventLoop& loop, Order order, const Platform& platform, std::function<void(WorkerReport)> ended);
    /// Ends the run, with its command.
    ~Worker();

    /// Asks the run to end, without waiting for it.
    void end();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
