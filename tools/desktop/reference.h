// Finds the design for a place that a person names.
#pragma once

#include <string>

#include "desktop/place.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::tools {

/// A position such as "@1" stays a position; an id, or the beginning of one, becomes the id of a stored design.
Outcome<PlacedDesign> placedDesign(const std::string& reference, const Platform& platform);

}  // namespace orvel::tools
