// What a fuzzing program holds true: where it isn't, the process ends and the input is kept.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace orvel::fuzz {

inline void expect(bool truth, const char* what) {
    if (truth) return;
    std::fprintf(stderr, "NOT TRUE: %s\n", what);
    std::abort();
}

}  // namespace orvel::fuzz
