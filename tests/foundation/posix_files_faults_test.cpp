// A replacement in which each system call fails in turn. The linker puts the __wrap_ functions before the C library's
// (--wrap), so the code under test is the product's own, unchanged.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdint>
#include <cstring>
#include <utility>

#include "tests/foundation/files_fixture.h"

namespace {

struct Fault {
    std::string call;  // which call fails
    int nth = 1;       // at its nth time, from 1
    int code = 0;      // with that errno
    int seen = 0;

    bool strikes(const char* name) {
        if (call != name || ++seen != nth) return false;
        errno = code;
        return true;
    }
};
Fault fault;
std::size_t longestWrite = SIZE_MAX;

}  // namespace

extern "C" {
int __real_open(const char*, int, ...);
ssize_t __real_write(int, const void*, size_t);
int __real_fsync(int);
int __real_fchmod(int, mode_t);
int __real_close(int);
int __real_rename(const char*, const char*);
ssize_t __real_read(int, void*, size_t);
int __real_flock(int, int);
int __real_fstat(int, struct stat*);

int __wrap_open(const char* name, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return fault.strikes("open") ? -1 : __real_open(name, flags, mode);
}
ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    return fault.strikes("write") ? -1 : __real_write(file, bytes, std::min(size, longestWrite));
}
int __wrap_fsync(int file) {
    return fault.strikes("fsync") ? -1 : __real_fsync(file);
}
int __wrap_fchmod(int file, mode_t mode) {
    return fault.strikes("fchmod") ? -1 : __real_fchmod(file, mode);
}
int __wrap_close(int file) {
    const int result = __real_close(file);  // a failing close closes all the same
    return fault.strikes("close") ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
    return fault.strikes("rename") ? -1 : __real_rename(from, to);
}
ssize_t __wrap_read(int file, void* bytes, size_t size) {
    return fault.strikes("read") ? -1 : __real_read(file, bytes, size);
}
int __wrap_fstat(int file, struct stat* status) {
    return fault.strikes("fstat") ? -1 : __real_fstat(file, status);
}
int __wrap_flock(int file, int operation) {
    return fault.strikes("flock") ? -1 : __real_flock(file, operation);
}
}

namespace orvel {
namespace {

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
