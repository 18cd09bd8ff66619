// A symbol's shape, and shapes made of others.
#pragma once

#include <vector>

#include "platform/ui/geometry.h"

namespace orvel {

/// A closed outline in a unit square, y down, to be filled by the non-zero rule.
struct SymbolOutline {
    enum class Verb { move, line, quadratic, cubic };
    struct Segment {
        Verb verb;
        Point points[3];  ///< control points first, the end point last; unused ones are zero
    };
    std::vector<Segment> segments;
};

/// The symbol, smaller, in the middle of a shape: within it when the shape is a line, cut out of it when it is an area.
SymbolOutline enclosed(const SymbolOutline& symbol, const SymbolOutline& shape);

}  // namespace orvel
