// One run of the command: its arguments, and the operation that they chose.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct Session {
    Console console;
    std::optional<Date> at = {};               ///< absent: the machine's clock
    std::optional<std::string> language = {};  ///< absent: the environment's
    /// Set while the arguments are parsed; called once, with a platform whose clock is at that moment.
    std::function<Outcome<Done>(const Platform&)> operation = {};
};

}  // namespace orvel::tools
