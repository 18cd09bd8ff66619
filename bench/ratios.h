// Running benchmarks that are compared with each other. They are named SUBJECT/CASE; for every case a table at the end
// gives one subject's time, and the other subjects' times as multiples of it.
#pragma once

#include <string>

namespace orvel::bench {

/// Runs what is registered, several times in random order, so that the machine's moods meet all subjects alike. The
/// arguments are Google Benchmark's. Returns an exit code.
int runAndCompare(int argc, char** argv, const std::string& reference);

}  // namespace orvel::bench
