// A countdown's target as a person writes it.
#pragma once

#include <string>

#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

/// The text to store. The store's own forms stay unchanged; "2026-12-24 18:00" is local time, "+3d" and "+5h" count
/// from now, and all of these become a date and time with the zone's offset.
Outcome<std::string> targetText(const std::string& text, const Platform& platform);

}  // namespace orvel
