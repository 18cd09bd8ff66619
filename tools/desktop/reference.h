// Finds the design for a place that a person names.
#pragma once

#include <string>

#include "desktop/place.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// A position such as "@1" stays a position; an id, or the beginning of one, becomes the id of a stored design.
Outcome<PlacedDesign> placedDesign(const std::string& reference, const Platform& platform);

/// Says so where a position has no design yet.
void tellIfNotStored(const PlacedDesign& design, const Platform& platform, Console& console);

}  // namespace orvel::tools
