// The card's background.
#pragma once

#include "platform/ui/style.h"

namespace orvel {

/// A near-black with a faint blue cast, the same for every design, family and appearance.
inline constexpr Color cardBackground{22 / 255.0, 22 / 255.0, 25 / 255.0, 1.0};

}  // namespace orvel
