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
    // A name that exists is a dead process's temporary. What an fsync that failed has lost, another one doesn't bring
    // back. The second open and fsync are the folder's, after the rename; some file systems can't sync folders.
    const struct {
        const char* call;
        int nth;
        int code;
        bool succeeds;
        const std::string& content;
    } cases[] = {{"open", 1, EACCES, false, oldContent},  {"open", 1, ENOSPC, false, oldContent},
                 {"open", 1, EINTR, true, newContent},    {"open", 1, EEXIST, true, newContent},
                 {"fchmod", 1, EPERM, false, oldContent}, {"write", 1, EIO, false, oldContent},
                 {"write", 2, ENOSPC, false, oldContent}, {"write", 2, EINTR, true, newContent},
                 {"fsync", 1, EIO, false, oldContent},    {"fsync", 1, EINTR, false, oldContent},
                 {"close", 1, EIO, false, oldContent},    {"close", 1, EINTR, true, newContent},
                 {"rename", 1, EIO, false, oldContent},   {"open", 2, EMFILE, false, newContent},
                 {"open", 2, EACCES, true, newContent},   {"fsync", 2, EIO, false, newContent},
                 {"fsync", 2, EINVAL, true, newContent}};
    const fs::path target = folder / "file";
    longestWrite = 30'000;
    for (const auto& c : cases) {
        std::ofstream(target, std::ios::trunc) << oldContent;
        const auto descriptors = openDescriptors();
        fault = {c.call, c.nth, c.code};
        const auto replaced = files.replace(target, newContent);
        const int seen = std::exchange(fault, {}).seen;

        const std::string which = std::string(c.call) + " " + std::to_string(c.nth) + ": " + std::strerror(c.code);
        EXPECT_GE(seen, c.nth) << which << " was never reached";
        EXPECT_EQ(static_cast<bool>(replaced), c.succeeds) << which;
        if (!replaced) {
            EXPECT_EQ(replaced.failure().code.value(), c.code) << which;
        }
        EXPECT_EQ(content(target), c.content) << which;
        EXPECT_EQ(names().size(), 1U) << which << " leaves a file";
        EXPECT_EQ(openDescriptors(), descriptors) << which << " leaks";
    }
    longestWrite = SIZE_MAX;
}

TEST_F(Faults, OfReadingAndLockingAreTold) {
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
