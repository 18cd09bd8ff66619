// One-shot timers of an event loop. Setting a timer again replaces its date; a timer that goes never fires.
#pragma once

#include <chrono>
#include <memory>

#include "platform/foundation/date.h"
#include "platform/events/event_loop.h"

namespace orvel {

/// Fires at a date by the machine's clock: late after the machine has slept through it, and also when the clock is set,
/// after which the caller looks at the clock and sets the timer anew.
class ClockTimer {
public:
    ClockTimer(EventLoop& loop, EventLoop::Handler fired);
    ~ClockTimer();
    void set(Date date);

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Fires after a time in which the machine runs, whatever the clock does.
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
