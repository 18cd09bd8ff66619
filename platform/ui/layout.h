// Lays a view tree out: a parent proposes a size, each child chooses its own, and the parent places it. A stack serves
// its least flexible children first and its spacers last. A frame proposes the lengths that it is given, and takes them
// whatever its content chooses. A text wraps, then shrinks as far as it may, and is then cut.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/ui/text_fit.h"
#include "platform/ui/view.h"

namespace orvel {

/// What a layout needs besides the tree.
struct LayoutContext {
    TextEngine& text;
    const Localizer& localizer;
};

struct PlacedText {
    FittedText fitted;
    Font font;  ///< before scaling
    Color color;
};

struct PlacedSymbol {
    std::string name;
    Color color;
};

struct PlacedCircle {
    double trimFrom;
    double trimTo;
    std::optional<StrokeStyle> stroke;  ///< absent: filled
    Color color;
};

/// A view with its size and its parts.
struct Placed {
    struct Part {
        Point origin;  ///< in this view's coordinates; outside its box where the part is larger
        std::shared_ptr<const Placed> placed;
    };

    Size size = {};
    std::variant<std::monostate, PlacedText, PlacedSymbol, PlacedCircle> content = {};
    std::optional<node::Rotation> rotation = {};
    std::vector<Part> parts = {};
};

/// The gap between two neighbours of a stack without spacing; there is none beside a spacer.
inline constexpr double defaultSpacing = 8;
/// A spacer's length when none is given.
inline constexpr double defaultSpacerLength = 8;
/// A shape's side where none is proposed.
inline constexpr double defaultShapeLength = 10;

/// Never null.
std::shared_ptr<const Placed> layOut(const View& view, const ProposedSize& proposal, const LayoutContext& context);

/// Where a box of that size lies in a container, as its top left corner.
Point aligned(Size box, Size container, Alignment alignment);

}  // namespace orvel
