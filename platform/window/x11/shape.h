// A rounded shape as the whole pixels that it covers. Private to this folder.
#pragma once

#include <vector>

#include "platform/window/surface/placement.h"

namespace orvel {

/// Every pixel whose centre is inside, as rows from top to bottom; rows of full width are one rectangle.
std::vector<PixelRect> roundedShape(int widthPx, int heightPx, double radiusPx);

}  // namespace orvel
