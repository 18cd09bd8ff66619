// A card that is drawn or printed again whenever it may have changed.
#pragma once

#include "platform/foundation/function_ref.h"
#include "tools/card/shown_card.h"

namespace orvel::tools {

/// Calls `update` at once, and again when the store, the design's file or the time zone changes and at each whole
/// minute, until SIGINT or SIGTERM. What fails is said when it isn't what was said last, and doesn't end it. Standard
/// input can't be followed.
Outcome<Done> follow(const DesignChoice& design, const Platform& platform, Console& console,
                     FunctionRef<Outcome<Done>()> update);

}  // namespace orvel::tools
