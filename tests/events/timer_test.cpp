#include "platform/events/timer.h"

#include <gtest/gtest.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>

#include "platform/events/back_off.h"

// A machine's clock that a test can set, as far as timers notice it; the linker puts this before the C library
// (--wrap).
namespace {
int cancellable = -1;  ///< the last timer that is cancelled when the clock is set
bool clockWasSet = false;
}  // namespace

extern "C" {
int __real_timerfd_settime(int, int, const itimerspec*, itimerspec*);
ssize_t __real_read(int, void*, size_t);

int __wrap_timerfd_settime(int timer, int flags, const itimerspec* when, itimerspec* old) {
    if (flags & TFD_TIMER_CANCEL_ON_SET) cancellable = timer;
    return __real_timerfd_settime(timer, flags, when, old);
}
ssize_t __wrap_read(int file, void* bytes, size_t size) {
    const ssize_t count = __real_read(file, bytes, size);
    if (count <= 0 || file != cancellable || !clockWasSet) return count;
    errno = ECANCELED;
    return -1;
}
}

namespace orvel {
namespace {

using namespace std::chrono_literals;

TEST(BackOff, DoublesUpToAMinute) {
    BackOff backOff;
    for (const auto expected : {100ms, 200ms, 400ms, 800ms}) EXPECT_EQ(backOff.next(), expected);
    for (int i = 0; i < 50; ++i) backOff.next();
    EXPECT_EQ(backOff.next(), 60s);
    backOff.reset();
    EXPECT_EQ(backOff.next(), 100ms);
}

TEST(ClockTimer, FiresAtItsDateAndAtOnceForOneThatHasPassed) {
    EventLoop loop;
    const auto now = [] { return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()); };
    int fired = 0;
    ClockTimer timer(loop, [&] {
        ++fired;
        loop.stop();
    });
    const double due = now().count() + 0.05;
    timer.set(Date::fromUnixTime(due));
    loop.run();
    EXPECT_GE(now().count(), due);
    timer.set(Date{-1e12});
    loop.run();
    EXPECT_EQ(fired, 2);
}

TEST(ClockTimer, FiresWhenTheClockIsSet) {
    EventLoop loop;
    bool fired = false;
    ClockTimer timer(loop, [&] {
        fired = true;
        loop.stop();
    });
    DelayTimer enough(loop, [&] { loop.stop(); });
    enough.set(60s);
    timer.set(Date{1e10});
    ASSERT_GE(cancellable, 0);
    clockWasSet = true;
    const itimerspec soon{{}, {0, 1}};
    __real_timerfd_settime(cancellable, 0, &soon, nullptr);  // it can be read now
    loop.run();
    clockWasSet = false;
    EXPECT_TRUE(fired);
}

}  // namespace
}  // namespace orvel
