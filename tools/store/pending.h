// The one design that is kept beside the list.
#pragma once

#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// The pending design, as words or as its record (null when there is none).
Outcome<Done> showPending(bool json, const Platform& platform, Console& console);
Outcome<Done> setPending(const std::string& file, const Platform& platform, Console& console);
/// Succeeds also when no design is pending.
Outcome<Done> clearPending(const Platform& platform, Console& console);
/// Adds the pending design, prints its id, and clears it.
Outcome<Done> acceptPending(const Platform& platform, Console& console);

}  // namespace orvel::tools
