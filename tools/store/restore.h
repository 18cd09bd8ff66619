// What is kept beside the store's list, and bringing it back.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Without a choice, lists what is kept, the newest first, with what each would load. A choice is a number in that
/// list, or a file of it: it takes the list's place, which is kept beside in turn.
Outcome<Done> restore(const std::optional<std::string>& choice, const Platform& platform, Console& console);

}  // namespace orvel::tools
