// Where cards stand: several in the same place form a column, and further columns when the output is full. Numbers in,
// numbers out.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/ui/geometry.h"
#include "platform/window/surface/window_system.h"

namespace orvel {

/// Which monitor a card wants.
struct OutputChoice {
    enum class Which {
        any,      ///< as the window system thinks fit
        primary,  ///< the main one
        all,      ///< a card on each
        named
    };
    Which which = Which::any;
    std::string name = {};
    friend bool operator==(const OutputChoice&, const OutputChoice&) = default;
};

struct CardPlace {
    OutputChoice output = {};
    Anchor anchor = {};
    Margin margin = {};
    Layer layer = Layer::bottom;
    friend bool operator==(const CardPlace&, const CardPlace&) = default;
};

struct CardToArrange {
    Size size;
    CardPlace place;
};

/// A card as a surface of one output.
struct ArrangedCard {
    std::size_t card;  ///< its index
    Placement placement;
    friend bool operator==(const ArrangedCard&, const ArrangedCard&) = default;
};

/// Points between cards of a column, and between columns.
inline constexpr double cardGap = 16;

/// Cards with the same output, anchor and margin share a column, in their order, which grows from the anchored edge, or
/// about the middle. One that would leave the output's room begins another column, further inwards. While a room isn't
/// known, there is one column. A card whose monitor isn't there keeps its place for the time when it is.
std::vector<ArrangedCard> arrange(std::span<const CardToArrange> cards, std::span<const Output> outputs);

}  // namespace orvel
