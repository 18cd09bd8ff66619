// Computes the positions of cards: several in the same place form a column, and more columns when the output is full.
// Numbers in, numbers out.
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
        any,      ///< the window system chooses
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

/// Cards with the same output, anchor and margin share a column, which grows from the anchored edge, or from the middle
/// in both directions. A card that would lie outside the output's usable area begins another column, further inwards.
/// While that area isn't known, there is one column. A card whose monitor isn't connected has no position.
std::vector<ArrangedCard> arrange(std::span<const CardToArrange> cards, std::span<const Output> outputs);

}  // namespace orvel
