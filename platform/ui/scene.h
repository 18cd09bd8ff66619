// The flat list of marks that a laid-out view draws, in drawing order, in points from the container's top left corner.
// A painter only replays it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/ui/layout.h"
#include "platform/ui/symbol_set.h"

namespace orvel {

struct TextMark {
    std::string text;  ///< after cutting
    Font font;         ///< after scaling
    Color color;
    double baseline;  ///< of the first line, from the container's top
    double lineHeight;
    int lines;
    double scale;  ///< from the size at which the lines were shaped to the font's
    std::shared_ptr<const ShapedText> shaped;
};

struct SymbolMark {
    std::string name;
    Color color;
};

/// A filled circle.
struct CircleMark {
    Color color;
};

/// A stroked part of a circle's outline, clockwise between two fractions of it.
struct ArcMark {
    double from;
    double to;
    double startDegrees;  ///< where fraction 0 lies, clockwise from the right
    StrokeStyle stroke;
    Color color;
};

struct Mark {
    Rect frame;
    double rotationDegrees = 0;  ///< of what is in the frame, clockwise about its centre; an arc's is in its start
    std::variant<TextMark, SymbolMark, CircleMark, ArcMark> content;
};

struct Scene {
    Size size;
    std::optional<Color> background;
    std::vector<Mark> marks;
};

/// Lays the view out inside a container, centred within equal margins, and lists its marks. A view that is too large
/// begins at the leading top corner, so that its beginning is visible. Empty texts, empty arcs and unknown symbols
/// leave no mark.
Scene makeScene(const View& view, Size container, double margin, const LayoutContext& context,
                const SymbolSet& symbols);

}  // namespace orvel
