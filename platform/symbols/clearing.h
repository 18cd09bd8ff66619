// Clears space around a symbol that stands in front of another.
#pragma once

#include "platform/symbols/contours.h"

namespace orvel {

/// The convex area, clockwise, that extends beyond the outline by this distance on every side.
Polygon areaAround(const SymbolOutline& outline, double gap);

/// The parts of an outline outside a convex, clockwise area: filled by the non-zero rule, they leave the area empty.
SymbolOutline cleared(const SymbolOutline& outline, const Polygon& area);

}  // namespace orvel
