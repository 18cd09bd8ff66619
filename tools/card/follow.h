// Draws or prints a card again whenever it may have changed.
#pragma once

#include "platform/foundation/function_ref.h"
#include "tools/card/shown_card.h"

namespace orvel::tools {

/// Calls `update` at once, again when the store, the design's file or the time zone changes, and at each whole minute,
/// until SIGINT or SIGTERM. A failure is printed unless it is the same as the last one, and doesn't end this. Standard
/// input can't be followed.
Outcome<Done> follow(const DesignChoice& design, const Platform& platform, Console& console,
                     FunctionRef<Outcome<Done>()> update);

}  // namespace orvel::tools
