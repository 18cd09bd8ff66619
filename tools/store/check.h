// Checks whether designs are valid, and whether they show as meant.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Prints how many designs are valid, and warns of what won't show as meant. A fault is a failure with the file, line
/// and column (from 1, in characters), the design, the key and what is wrong. An absent file is the store's list.
Outcome<Done> check(const std::optional<std::string>& file, const Platform& platform, Console& console);

}  // namespace orvel::tools
