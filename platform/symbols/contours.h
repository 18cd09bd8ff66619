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

/// The winding number of a closed line around a point, positive when clockwise.
int windings(const Polygon& polygon, Point point);

/// The same contours, with all areas running one way and their holes the other way, which fonts don't always do. The
/// contours must not cross.
SymbolOutline running(const SymbolOutline& outline, Turn areas);

}  // namespace orvel
