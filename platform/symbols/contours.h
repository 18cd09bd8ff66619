// The closed lines that an outline is made of.
#pragma once

#include <vector>

#include "platform/ui/symbol_set.h"

namespace orvel {

using Contour = std::vector<SymbolOutline::Segment>;  ///< the first one moves
using Polygon = std::vector<Point>;

enum class Turn { clockwise, counterclockwise };

std::vector<Contour> contours(const SymbolOutline& outline);

/// A contour as straight lines, near enough to draw.
Polygon flattened(const Contour& contour);

Contour contour(const Polygon& polygon);

/// How often a closed line runs around a point, positive when clockwise.
int windings(const Polygon& polygon, Point point);

/// The same areas, which now all run one way, the holes in them the other way. Fonts don't always hold to that. No two
/// contours cross.
SymbolOutline running(const SymbolOutline& outline, Turn areas);

}  // namespace orvel
