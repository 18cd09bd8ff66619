#include <gtest/gtest.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/events/back_off.h"
#include "platform/events/path_watch.h"
#include "platform/window/surface/placement.h"
#include "platform/events/timer.h"
#include "platform/window/x11/display.h"
#include "platform/window/x11/shape.h"

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

namespace fs = std::filesystem;
using namespace std::chrono_literals;

TEST(Placement, LiesInTheAreaWithTheMarginToTheEdgesItIsAnchoredTo) {
    const PixelRect area{100, 50, 1000, 600};
    const PixelRect box{0, 0, 170, 170};
    EXPECT_EQ(placed(box, area, {1, -1}, 24, 24), (PixelRect{906, 74, 170, 170}));
    EXPECT_EQ(placed(box, area, {-1, 1}, 24, 10), (PixelRect{124, 470, 170, 170}));
    EXPECT_EQ(placed(box, area, {0, 0}, 24, 24), (PixelRect{515, 265, 170, 170})) << "no edge, no margin";
    EXPECT_EQ(intersection(area, {0, 0, 300, 100}), (PixelRect{100, 50, 200, 50}));
    EXPECT_EQ(intersection(area, {0, 0, 50, 50}).width, 0);
}

TEST(X11Monitors, TheNamedOneIsChosenElseThePrimaryElseTheFirst) {
    std::vector<X11Monitor> monitors{{"A", {}, false}, {"B", {}, true}, {"C", {}, false}};
    EXPECT_EQ(chosenMonitor(monitors, std::nullopt), &monitors[1]);
    EXPECT_EQ(chosenMonitor(monitors, "C"), &monitors[2]);
    EXPECT_EQ(chosenMonitor(monitors, "D"), nullptr);
    monitors[1].primary = false;
    EXPECT_EQ(chosenMonitor(monitors, std::nullopt), &monitors[0]);
}

TEST(RoundedShape, CoversThePixelsWhoseCentresAreInside) {
    const double radius = 30;
    std::vector<int> covered(170, 0);
    for (const PixelRect& row : roundedShape(170, 100, radius))
        for (int y = row.y; y < row.y + row.height; ++y)
            for (int x = 0; x < 170; ++x) {
                const double dx = std::max({radius - (x + 0.5), (x + 0.5) - (170 - radius), 0.0});
                const double dy = std::max({radius - (y + 0.5), (y + 0.5) - (100 - radius), 0.0});
                const bool inside = dx * dx + dy * dy <= radius * radius;
                EXPECT_EQ(x >= row.x && x < row.x + row.width, inside) << x << ' ' << y;
                if (inside) ++covered[static_cast<std::size_t>(x)];
            }
    EXPECT_EQ(covered[85], 100) << "every row is there";
    EXPECT_EQ(roundedShape(10, 10, 0), (std::vector<PixelRect>{{0, 0, 10, 10}}));
}

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
    enough.set(500ms);
    timer.set(Date{1e10});
    ASSERT_GE(cancellable, 0);
    clockWasSet = true;
    const itimerspec soon{{}, {0, 1}};
    __real_timerfd_settime(cancellable, 0, &soon, nullptr);  // it can be read now
    loop.run();
    clockWasSet = false;
    EXPECT_TRUE(fired);
}

/// A folder "a/store" in a new place, watched, while a test changes things.
class WatchedFolder : public testing::Test {
protected:
    WatchedFolder() { fs::create_directories(root); }
    ~WatchedFolder() override { fs::remove_all(root); }

    /// Whether the watch tells of a change within a second; it must not tell twice of one.
    bool isTold(const std::function<void()>& change) {
        int told = 0;
        PathWatch watch(loop, {root / "a/store"}, [&] { ++told; });
        change();
        DelayTimer enough(loop, [&] { loop.stop(); });
        enough.set(400ms);
        loop.run();
        EXPECT_LE(told, 1);
        return told == 1;
    }
    static void write(const fs::path& file) { std::ofstream(file) << "text"; }

    EventLoop loop;
    fs::path root =
        fs::canonical(fs::temp_directory_path()) /
        ("watched-" + std::to_string(::getpid()) + testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::path store = root / "a/store";
};

TEST_F(WatchedFolder, TellsOfEveryWayToChangeWhatItHolds) {
    EXPECT_TRUE(isTold([&] { fs::create_directories(store); })) << "made later, with its parent";
    EXPECT_TRUE(isTold([&] {
        for (int i = 0; i < 50; ++i) write(store / "list");
    })) << "in place, many times";
    EXPECT_TRUE(isTold([&] {
        write(store / "new");
        fs::rename(store / "new", store / "list");
    })) << "replaced";
    EXPECT_TRUE(isTold([&] { fs::remove(store / "list"); }));
    EXPECT_TRUE(isTold([&] {
        fs::remove_all(store);
        fs::create_directory(store);
        write(store / "list");
    })) << "deleted and made again";
    EXPECT_TRUE(isTold([&] { fs::rename(root / "a", root / "b"); })) << "a parent moved away";
    EXPECT_TRUE(isTold([&] { fs::rename(root / "b", root / "a"); })) << "and back";
    EXPECT_FALSE(isTold([&] {
        write(root / "a/elsewhere");
        write(root / "elsewhere");
        fs::permissions(root / "elsewhere", fs::perms::owner_all);
        fs::permissions(root / "a/elsewhere", fs::perms::owner_all);
    })) << "what lies beside the way wakes nobody";
}

TEST_F(WatchedFolder, IsReportedWhileAWriterNeverPauses) {
    fs::create_directories(store);
    int reports = 0;
    PathWatch watch(loop, {store}, [&] {
        if (++reports == 3) loop.stop();
    });
    std::jthread writer([this](const std::stop_token& stop) {
        while (!stop.stop_requested()) write(store / "list");
    });
    DelayTimer giveUp(loop, [&] { loop.stop(); });
    giveUp.set(30s);
    loop.run();
    EXPECT_EQ(reports, 3);
}

TEST_F(WatchedFolder, FollowsLinks) {
    fs::create_directories(root / "a");
    fs::create_directories(root / "one");
    fs::create_directories(root / "two");
    fs::create_directory_symlink("../one", store);
    EXPECT_TRUE(isTold([&] { write(root / "one/list"); }));
    EXPECT_TRUE(isTold([&] {
        fs::create_directory_symlink("../two", root / "a/next");
        fs::rename(root / "a/next", store);
    })) << "the link is swapped";
    EXPECT_TRUE(isTold([&] { write(root / "two/list"); }));

    fs::create_symlink("../one/list", root / "two/linked");
    EXPECT_TRUE(isTold([&] { write(root / "one/list"); })) << "a file that a link in the folder points to";
    fs::create_symlink("itself", root / "two/itself");
    EXPECT_TRUE(isTold([&] { write(root / "two/list"); })) << "a link to itself harms nobody";
}

}  // namespace
}  // namespace orvel
