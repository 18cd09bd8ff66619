#include "platform/events/path_watch.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#include "platform/events/timer.h"
#include "tests/support/no_free_descriptors.h"

namespace orvel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A folder "a/store" in a new place, watched, while a test changes things.
class WatchedFolder : public testing::Test {
protected:
    WatchedFolder() { fs::create_directories(root); }
    ~WatchedFolder() override { fs::remove_all(root); }

    /// Whether the watch tells of a change, within some time; it must not tell twice of one.
    bool isTold(const std::function<void()>& change, std::chrono::milliseconds time = 60s) {
        int told = 0;
        DelayTimer enough(loop, [&] { loop.stop(); });
        PathWatch watch(loop, {root / "a/store"}, [&] {
            ++told;
            enough.set(300ms);
        });
        enough.set(time);
        change();
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
    EXPECT_FALSE(isTold(
        [&] {
            write(root / "a/elsewhere");
            write(root / "elsewhere");
            fs::permissions(root / "elsewhere", fs::perms::owner_all);
            fs::permissions(root / "a/elsewhere", fs::perms::owner_all);
        },
        400ms))
        << "what lies beside the way wakes nobody";
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
    giveUp.set(60s);
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

TEST_F(WatchedFolder, IsWatchedAgainWhenTheSystemHadNoRoomForThat) {
    fs::create_directories(store);
    write(store / "list");
    const auto replace = [this] {
        write(root / "new");
        fs::rename(root / "new", store / "list");
    };
    std::optional<test::NoFreeDescriptors> none;
    int attempts = 0;
    bool isFollowed = false;
    DelayTimer giveUp(loop, [&] { loop.stop(); });
    DelayTimer later(loop, replace);
    PathWatch watch(loop, {store / "list"}, [&] {
        switch (++attempts) {
            case 1: return;                  // of the change that couldn't be followed
            case 2: none.reset(); return;    // an attempt that failed as well
            case 3: later.set(1ms); return;  // one that didn't: the next change is seen
            default: isFollowed = true; loop.stop();
        }
    });
    replace();
    none.emplace();
    giveUp.set(60s);
    loop.run();
    EXPECT_TRUE(isFollowed) << attempts;
}

}  // namespace
}  // namespace orvel
