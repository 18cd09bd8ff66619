#include "platform/events/event_loop.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <cerrno>
#include <deque>
#include <vector>

#include "platform/events/timer.h"

// Waiting that fails; the linker puts this before the C library (--wrap).
namespace {
struct Wait {
    nfds_t descriptors;
    int milliseconds;
    friend bool operator==(const Wait&, const Wait&) = default;
};
bool isRecording = false;
std::deque<int> failures;  ///< of the next waits for a descriptor: errno
std::vector<Wait> waits;
}  // namespace

extern "C" {
int __real_poll(pollfd*, nfds_t, int);

int __wrap_poll(pollfd* descriptors, nfds_t count, int milliseconds) {
    if (!isRecording) return __real_poll(descriptors, count, milliseconds);
    waits.push_back({count, milliseconds});
    if (count == 0) return 0;  // that time has passed
    if (failures.empty()) return __real_poll(descriptors, count, milliseconds);
    errno = failures.front();
    failures.pop_front();
    return -1;
}
}

namespace orvel {
namespace {

TEST(EventLoop, PausesWhenItCantWaitButNotForASignal) {
    EventLoop loop;
    DelayTimer timer(loop, [&] { loop.stop(); });
    timer.set(std::chrono::milliseconds(1));
    failures = {EINTR, EINVAL, ENOMEM};
    isRecording = true;
    loop.run();
    isRecording = false;
    const Wait forTheTimer{1, -1}, pause{0, 1000};
    EXPECT_EQ(waits, (std::vector{forTheTimer, forTheTimer, pause, forTheTimer, pause, forTheTimer}));
}

}  // namespace
}  // namespace orvel
