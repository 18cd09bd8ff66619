// The interface to a text system: lines of one font, broken and cut to a width.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ui/style.h"

namespace orvel {

/// A text engine's own form of laid-out lines, for its own painter.
struct ShapedText;

/// Distances from the baseline, both positive.
struct FontMetrics {
    double ascent = 0;
    double descent = 0;
};

struct TextBlock {
    double width = 0;       ///< of the widest line; blanks at a line's end don't count
    int lines = 0;          ///< an empty text is one line
    std::string text = {};  ///< what is shown: without control characters, and ending in "…" when cut
    bool cut = false;
    FontMetrics otherFaces = {};  ///< how far the ink of fallback faces extends
    std::shared_ptr<const ShapedText> shaped = {};
};

class TextEngine {
public:
    virtual ~TextEngine() = default;

    virtual FontMetrics metrics(const Font& font) = 0;

    /// Breaks the text at its own line breaks and, to keep within `width` (absent: no bound), between words, or inside
    /// a word that is too wide by itself. Blanks hang over a line's end. If there are more than `mostLines` (at least
    /// 1) lines, the last one that remains is cut with "…", never inside a user-perceived character. Invisible lines
    /// are removed first: those at the end without a "…", then those at the start. Every line has at least one letter,
    /// however narrow the width; only lines of one letter can be wider than it.
    virtual TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) = 0;
};

}  // namespace orvel
