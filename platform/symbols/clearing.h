// Space around a symbol that stands in front of another.
#pragma once

#include "platform/symbols/contours.h"

namespace orvel {

/// The convex area, running clockwise, that reaches this much further than the outline on every side.
Polygon areaAround(const SymbolOutline& outline, double gap);

/// What of an outline lies outside a convex area that runs clockwise. Filled by the non-zero rule, nothing is in it.
SymbolOutline cleared(const SymbolOutline& outline, const Polygon& area);

}  // namespace orvel
