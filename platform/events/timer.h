// One-shot timers of an event loop. Setting a timer again replaces its date; a destroyed timer never fires.
#pragma once

#include <chrono>
#include <memory>

#include "platform/foundation/date.h"
#include "platform/events/event_loop.h"

namespace orvel {

/// Fires at a date of the machine's clock, or late if the machine was suspended then. It also fires when the clock is
/// set; the caller then looks at the clock and sets the timer again.
class ClockTimer {
public:
    ClockTimer(EventLoop& loop, EventLoop::Handler fired);
    ~ClockTimer();
    void set(Date date);

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Fires after a length of time, whatever happens to the clock. Time in suspend doesn't count.
class DelayTimer {
public:
    DelayTimer(EventLoop& loop, EventLoop::Handler fired);
    ~DelayTimer();
    void set(std::chrono::milliseconds delay);
    bool isSet() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
