// Where a surface lies on an output, and how far it is above or below other windows.
#pragma once

#include <optional>
#include <string>

namespace orvel {

/// Background and bottom are under the windows, top and overlay above them.
enum class Layer { background, bottom, top, overlay };

/// -1 is the output's left or top edge, 0 its middle, 1 its right or bottom edge.
struct Anchor {
    int horizontal = 1;
    int vertical = -1;
    friend bool operator==(const Anchor&, const Anchor&) = default;
};

/// Points to the edges that the surface is anchored to.
struct Margin {
    double x = 24;
    double y = 24;
    friend bool operator==(const Margin&, const Margin&) = default;
};

struct Placement {
    Anchor anchor = {};
    Margin margin = {};
    std::optional<std::string> output = {};  ///< by name; absent: the window system's choice
    Layer layer = Layer::bottom;
    friend bool operator==(const Placement&, const Placement&) = default;
};

/// Whole pixels.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// A box of that size (its origin is ignored) inside the area, with the margin to the anchored edges.
PixelRect placed(PixelRect box, const PixelRect& area, Anchor anchor, int marginXPx, int marginYPx);

/// The intersection; empty when there is none.
PixelRect intersection(const PixelRect& a, const PixelRect& b);

}  // namespace orvel
