// Where the command reads and prints, how patient it is, and how it ends.
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
    std::optional<std::size_t> columns = {};  ///< of the terminal that `out` is; absent when it is none
    bool isInteractive = false;               ///< somebody reads `err` and answers on `in`
    double lockWait = 30;                     ///< for how many seconds to wait for another process
};

/// One line on standard error, whatever the sentence has in it: "orvel: …".
void say(std::string_view sentence, Console& console);

/// The same for what isn't a failure: "orvel: warning: …".
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
