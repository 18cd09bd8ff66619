// Which design a person means on the desktop.
#pragma once

#include <string>

#include "desktop/place.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::tools {

/// A position such as "@1" stays one, whatever is there; an id, or the beginning of one, is the id of a stored design.
Outcome<PlacedDesign> placedDesign(const std::string& reference, const Platform& platform);

}  // namespace orvel::tools
