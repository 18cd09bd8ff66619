// What layout and painting ask of a set of symbols: outlines by name.
#pragma once

#include <string_view>
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

class SymbolSet {
public:
    virtual ~SymbolSet() = default;

    /// The outline, or null. It lasts until the next call; an object belongs to one thread. Names are data from
    /// anywhere: whatever isn't a name of the set is just not in it.
    virtual const SymbolOutline* outline(std::string_view name) const = 0;

    bool contains(std::string_view name) const { return outline(name) != nullptr; }
};

}  // namespace orvel
