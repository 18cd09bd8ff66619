// Where the command reads and prints, and the two ways in which it fails.
#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "platform/foundation/result.h"

namespace orvel::tools {

struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

enum ExitCode { done = 0, failed = 1, wrongUsage = 2 };

/// One line for the person at the console, without the command's name.
struct Failure {
    std::string reason;
    ExitCode code = failed;
};

template <class Value>
using Outcome = Result<Value, Failure>;

}  // namespace orvel::tools
