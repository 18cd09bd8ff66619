// What layout asks of a text system: lines of one font, broken and cut to a width.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ui/style.h"

namespace orvel {

/// A text engine's own form of laid-out lines, for its own painter.
struct ShapedText;

struct TextBlock {
    double width = 0;  ///< of the widest line; white space at a wrapped line's end doesn't count
    int lines = 0;     ///< 0 for an empty text
    std::string text;  ///< what is shown: without control characters, and ending in "…" when cut
    bool cut = false;
    std::shared_ptr<const ShapedText> shaped = {};
};

/// Distances from the baseline, both positive.
struct FontMetrics {
    double ascent = 0;
    double descent = 0;
};

class TextEngine {
public:
    virtual ~TextEngine() = default;

    virtual FontMetrics metrics(const Font& font) = 0;

    /// Breaks the text at its own line breaks and, to keep within `width` (absent: no bound), between words, or inside
    /// a word that is too wide on its own. Of more than `mostLines` (at least 1) lines the last one that remains is cut
    /// with "…", never inside a grapheme cluster. Every line has at least one cluster, however narrow the width.
    virtual TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) = 0;
};

}  // namespace orvel
