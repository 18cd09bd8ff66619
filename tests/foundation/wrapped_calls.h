// The system calls of the file layer, made to fail or listed. The linker puts these before the C library's
// (--wrap), so the code under test is the product's own, unchanged.
#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvel::test {

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
inline Fault fault;
inline std::size_t longestWrite = SIZE_MAX;

/// The calls that have succeeded, of those that matter when power is lost: "write /path", "sync /path", and "rename
/// /to".
inline std::vector<std::string> calls;

}  // namespace orvel::test
