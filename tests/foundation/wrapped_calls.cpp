#include "tests/foundation/wrapped_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <filesystem>
#include <string>

using namespace orvel::test;

namespace {

void note(const char* call, int file) {
    calls.push_back(call + std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file)).string());
}

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
    const ssize_t count = fault.strikes("write") ? -1 : __real_write(file, bytes, std::min(size, longestWrite));
    if (count > 0) note("write ", file);
    return count;
}
int __wrap_fsync(int file) {
    const int result = fault.strikes("fsync") ? -1 : __real_fsync(file);
    if (result == 0) note("sync ", file);
    return result;
}
int __wrap_fchmod(int file, mode_t mode) {
    return fault.strikes("fchmod") ? -1 : __real_fchmod(file, mode);
}
int __wrap_close(int file) {
    const int result = __real_close(file);  // a failing close closes all the same
    return fault.strikes("close") ? -1 : result;
}
int __wrap_rename(const char* from, const char* to) {
    const int result = fault.strikes("rename") ? -1 : __real_rename(from, to);
    if (result == 0) calls.push_back(std::string("rename ") + to);
    return result;
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
