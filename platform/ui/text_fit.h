// Fits a text into a proposed size: whole if possible, else shrunk as far as it may, else cut.
#pragma once

#include <optional>
#include <string_view>

#include "platform/ui/geometry.h"
#include "platform/ui/text_engine.h"

namespace orvel {

struct TextStyle {
    Font font = Font::body;
    std::optional<int> lineLimit = {};
    double minimumScaleFactor = 1;
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

struct FittedText {
    TextBlock block;        ///< laid out at the style's font size
    double scale = 1;       ///< by which the block is drawn smaller
    Size size;              ///< scaled
    double lineHeight = 0;  ///< scaled
    double baseline = 0;    ///< of the first line, from the top; scaled
};

/// No text is laid out higher than this many lines.
inline constexpr int mostTextLines = 64;

/// A line is as high as the font's ascent and descent, rounded up to a whole point; the rest is shared evenly above and
/// below. When the ink of a fallback face is higher, such as Tibetan's, the text's lines are as high as that ink. As
/// many whole lines are shown as the proposed height holds, but at least one. Scaling multiplies everything, without
/// steps, by the largest factor at which the text shows as much as it can within the height. An empty text is an empty
/// line.
FittedText fitText(std::string_view text, const TextStyle& style, const ProposedSize& proposal, TextEngine& engine);

}  // namespace orvel
