// The timeline provider's three answers, printed as JSON.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

Outcome<Done> timeline(const Platform& platform, Console& console);

}  // namespace orvel::tools
