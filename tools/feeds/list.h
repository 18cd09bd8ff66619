// What feeds a person has, and how they are doing.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

enum class FeedsForm { table, json };

Outcome<Done> listFeeds(FeedsForm form, const Platform& platform, Console& console);

}  // namespace orvel::tools
