// Runs of feeds that a person asks for, by the command `orvel feed run`: a program of its own, as a feed's run wants to
// be a process's only work.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/events/event_loop.h"
#include "platform/foundation/descriptor.h"
#include "platform/foundation/outcome.h"

namespace orvel::designer {

class FeedRuns {
public:
    struct Run {
        bool isRunning = true;
        bool hasFailed = false;
        std::string said = {};  ///< what it printed, the first kilobytes, and why it failed
    };

    /// `ended` is called after each run.
    FeedRuns(EventLoop& loop, std::function<void()> ended) : loop_(loop), ended_(std::move(ended)) {}
    ~FeedRuns();

    /// One that runs already goes on.
    Outcome<Done> start(const std::string& feed);
    /// The last one; null when there was none.
    const Run* last(const std::string& feed) const;

private:
    struct Process {
        Run run = {};
        int number = -1;  ///< the process; -1: none
        Descriptor output = Descriptor();
        std::optional<EventLoop::Watch> watch = std::nullopt;
    };

    void receive(Process& process);

    EventLoop& loop_;
    std::function<void()> ended_;
    std::map<std::string, Process> processes_;
};

}  // namespace orvel::designer
