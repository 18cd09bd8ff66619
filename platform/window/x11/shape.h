// A rounded shape as the whole pixels that it covers. Private to this folder.
#pragma once

#include <vector>

#include "platform/window/surface/placement.h"

namespace orvel {

/// Rows from top to bottom, those of full width as one: every pixel whose centre is inside.
std::vector<PixelRect> roundedShape(int widthPx, int heightPx, double radiusPx);

}  // namespace orvel
