#include "platform/events/timer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "platform/foundation/descriptor.h"

namespace orvel {
namespace {

Descriptor makeTimer(clockid_t clock) {
    Descriptor timer(::timerfd_create(clock, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!timer) throw std::system_error(errno, std::generic_category(), "timerfd_create");
    return timer;
}

/// True when it has fired, or when the clock that it follows was set.
bool consume(int timer) {
    std::uint64_t expirations;
    return ::read(timer, &expirations, sizeof expirations) > 0 || errno == ECANCELED;
}

}  // namespace

struct ClockTimer::State {
    Descriptor timer;
    EventLoop::Watch watch;
};

ClockTimer::ClockTimer(EventLoop& loop, EventLoop::Handler fired) {
    Descriptor timer = makeTimer(CLOCK_REALTIME);
    auto watch = loop.watch(timer.get(), [descriptor = timer.get(), fired = std::move(fired)] {
        if (consume(descriptor)) fired();
    });
    state_ = std::make_unique<State>(State{std::move(timer), std::move(watch)});
}

ClockTimer::~ClockTimer() = default;

void ClockTimer::set(Date date) {
    // To the next whole millisecond, so that the date has come when the timer fires.
    const double milliseconds = std::ceil(std::clamp(date.unixTime(), 0.001, 1e11) * 1000);
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(milliseconds / 1000);
    when.it_value.tv_nsec = static_cast<long>(std::fmod(milliseconds, 1000)) * 1'000'000;
    constexpr int flags = TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET;
    // Where the clock was set since the last reading, the call says so and fails; the timer is armed all the same.
    ::timerfd_settime(state_->timer.get(), flags, &when, nullptr);
}

struct DelayTimer::State {
    Descriptor timer;
    EventLoop::Watch watch;
};

DelayTimer::DelayTimer(EventLoop& loop, EventLoop::Handler fired) {
    Descriptor timer = makeTimer(CLOCK_MONOTONIC);
    auto watch = loop.watch(timer.get(), [descriptor = timer.get(), fired = std::move(fired)] {
        if (consume(descriptor)) fired();
    });
    state_ = std::make_unique<State>(State{std::move(timer), std::move(watch)});
}

DelayTimer::~DelayTimer() = default;

void DelayTimer::set(std::chrono::milliseconds delay) {
    const auto positive = std::max(delay, std::chrono::milliseconds{1});  // zero would disarm
    itimerspec when{};
    when.it_value.tv_sec = positive.count() / 1000;
    when.it_value.tv_nsec = positive.count() % 1000 * 1'000'000;
    ::timerfd_settime(state_->timer.get(), 0, &when, nullptr);
}

bool DelayTimer::isSet() const {
    itimerspec left{};
    ::timerfd_gettime(state_->timer.get(), &left);
    return left.it_value.tv_sec != 0 || left.it_value.tv_nsec != 0;
}

}  // namespace orvel
