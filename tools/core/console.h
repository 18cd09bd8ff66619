// The command's input and output, how long it waits for locks, and its exit codes.
#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <ostream>
#include <string_view>

#include "platform/foundation/outcome.h"

namespace orvel::tools {

struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    std::optional<std::size_t> columns = {};  ///< the terminal's width; absent when `out` isn't a terminal
    bool isInteractive = false;               ///< `err` and `in` are terminals, so that questions can be answered
    double lockWait = 30;                     ///< for how many seconds to wait for another process
};

/// Prints the sentence as one line on standard error, without control characters: "orvel: …".
void say(std::string_view sentence, Console& console);

/// The same for a warning: "orvel: warning: …".
void warn(std::string_view sentence, Console& console);

enum ExitCode { done = 0, failed = 1, wrongUsage = 2, doneBut = 3 };

inline ExitCode exitCode(const Failure& failure) {
    switch (failure.cause) {
        case Failure::Cause::request: return wrongUsage;
        case Failure::Cause::afterwards: return doneBut;
        case Failure::Cause::circumstances:
        case Failure::Cause::content: break;
    }
    return failed;
}

}  // namespace orvel::tools
