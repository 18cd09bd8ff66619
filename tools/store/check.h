// Whether the store would load, and whether it would show as meant.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Prints how many designs load, and a warning for each that won't show as meant. What doesn't load fails with the
/// file, line and column (from 1, in characters), the design, the key and what is wrong. Absent: the store's list.
Outcome<Done> check(const std::optional<std::string>& file, const Platform& platform, Console& console);

}  // namespace orvel::tools
