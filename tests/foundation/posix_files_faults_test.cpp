// A replacement in which each system call fails in turn.
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <utility>

#include "tests/foundation/files_fixture.h"
#include "tests/foundation/wrapped_calls.h"

namespace orvel {
namespace {

using test::fault;
using test::longestWrite;

const std::string oldContent = "old";
const std::string newContent(100'000, 'n');

class Faults : public InFolder {
protected:
    static std::ptrdiff_t openDescriptors() {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    }
};

TEST_F(Faults, LeaveTheOldFileOrTheNewOneAndNothingElse) {
    // EEXIST: a temporary file of a dead process has the name. Data that a failed fsync has lost isn't saved by another
    // one. The second open and fsync are the folder's, after the rename; some file systems can't sync folders.
    enum End { old, replaced, unsynced };
    const struct {
        const char* call;
        int nth;
        int code;
        End end;
    } cases[] = {{"open", 1, EACCES, old},      {"open", 1, ENOSPC, old},      {"open", 1, EINTR, replaced},
                 {"open", 1, EEXIST, replaced}, {"fchmod", 1, EPERM, old},     {"write", 1, EIO, old},
                 {"write", 2, ENOSPC, old},     {"write", 2, EINTR, replaced}, {"fsync", 1, EIO, old},
                 {"fsync", 1, EINTR, replaced}, {"close", 1, EIO, old},        {"close", 1, EINTR, replaced},
                 {"rename", 1, EIO, old},       {"open", 2, EMFILE, unsynced}, {"open", 2, EACCES, unsynced},
                 {"fsync", 2, EIO, unsynced},   {"fsync", 2, EINTR, replaced}, {"fsync", 2, EINVAL, replaced}};
    const fs::path target = folder / "file";
    longestWrite = 30'000;
    for (const auto& c : cases) {
        std::ofstream(target, std::ios::trunc) << oldContent;
        const auto descriptors = openDescriptors();
        fault = {c.call, c.nth, c.code};
        const auto answer = files.replace(target, newContent);
        const int seen = std::exchange(fault, {}).seen;

        const std::string which = std::string(c.call) + " " + std::to_string(c.nth) + ": " + std::strerror(c.code);
        EXPECT_GE(seen, c.nth) << which << " was never reached";
        EXPECT_EQ(!answer ? old : answer->unsynced ? unsynced : End::replaced, c.end) << which;
        if (!answer || answer->unsynced) {
            EXPECT_EQ((answer ? *answer->unsynced : answer.failure()).code.value(), c.code) << which;
        }
        EXPECT_TRUE(content(target) == (c.end == old ? oldContent : newContent)) << which;
        EXPECT_EQ(names().size(), 1U) << which << " leaves a file";
        EXPECT_EQ(openDescriptors(), descriptors) << which << " leaks";
    }
    longestWrite = SIZE_MAX;
}

// A loss of power keeps what was synced, and of the rest anything. So the content is on the disk before its name is,
// and the name before the caller hears of success; where a link leads elsewhere, it is that folder's.
TEST_F(Faults, ALossOfPowerLeavesTheOldFileOrTheNewOne) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/file", folder / "link");
    longestWrite = 60'000;
    test::calls.clear();
    ASSERT_TRUE(files.replace(folder / "link", newContent));
    longestWrite = SIZE_MAX;
    ASSERT_FALSE(test::calls.empty());
    const std::string write = test::calls.front();
    const std::string target = (folder / "elsewhere/file").string();
    EXPECT_TRUE(write.starts_with("write " + target + "."));
    EXPECT_EQ(test::calls, (std::vector<std::string>{write, write, "sync" + write.substr(5), "rename " + target,
                                                     "sync " + (folder / "elsewhere").string()}));
}

TEST_F(Faults, AreReportedByReadingAndLocking) {
    std::ofstream(folder / "file") << oldContent;
    const auto descriptors = openDescriptors();
    for (const int code : {EIO, EINTR}) {
        for (const int nth : {1, 2}) {  // the second finds the end
            fault = {"read", nth, code};
            const auto read = files.read(folder / "file");
            EXPECT_EQ(read ? *read : read.failure().code.message(), code == EINTR ? oldContent : std::strerror(EIO));
        }
        for (const char* call : {"open", "flock"}) {
            fault = {call, 1, code};
            EXPECT_EQ(static_cast<bool>(files.lock(folder)), code == EINTR) << call << ": " << std::strerror(code);
        }
    }
    fault = {"fstat", 1, EIO};
    EXPECT_FALSE(files.read(folder / "file"));
    fault = {};
    EXPECT_EQ(openDescriptors(), descriptors);
}

TEST_F(Faults, SweepsOnlyOldTemporariesOfTheSameFile) {
    const auto make = [&](const std::string& name, int ageInHours) {
        std::ofstream(folder / name) << "x";
        fs::last_write_time(folder / name, fs::file_time_type::clock::now() - std::chrono::hours(ageInHours));
    };
    make("file.tmp-1-0", 25);
    make("file.tmp-2-0", 23);
    make("other.tmp-1-0", 25);
    make("file.old", 25);
    ASSERT_TRUE(files.replace(folder / "file", "x"));
    EXPECT_EQ(names(), (std::set<std::string>{"file", "file.tmp-2-0", "other.tmp-1-0", "file.old"}));
}

}  // namespace
}  // namespace orvel
