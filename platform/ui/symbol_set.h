// The interface to a set of symbols: outlines by name.
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

    /// The outline, or null when the set has no such symbol; any text may be given. The outline lasts until the next
    /// call. Use an object in one thread.
    virtual const SymbolOutline* outline(std::string_view name) const = 0;

    bool contains(std::string_view name) const { return outline(name) != nullptr; }
};

}  // namespace orvel
