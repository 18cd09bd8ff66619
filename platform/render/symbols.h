// The system's symbol set: outlines by name. The set is part of the binary.
#pragma once

#include <memory>
#include <optional>
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

class Symbols {
public:
    Symbols();
    ~Symbols();

    /// Names are data from anywhere: whatever isn't a name of the set is just not in it.
    bool contains(std::string_view name) const { return outline(name) != nullptr; }

    /// The outline, or null. It lasts until the next call; an object belongs to one thread.
    const SymbolOutline* outline(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
