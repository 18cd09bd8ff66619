// A text engine for layouts by hand: every character of a text is half as wide as the font's size, a line as high as
// it, and lines break anywhere.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/ui/text_engine.h"

namespace orvel::test {

class FixedTextEngine final : public TextEngine {
public:
    FontMetrics metrics(const Font& font) override { return {font.size * 0.75, font.size * 0.25}; }

    TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) override {
        if (text.empty()) return {};
        const double advance = font.size / 2;
        const double perLine =
            width ? std::max(1.0, std::floor(*width / advance + 1e-9)) : static_cast<double>(text.size());
        const double length = static_cast<double>(text.size());
        TextBlock block;
        block.lines = std::min(mostLines, static_cast<int>(std::ceil(length / perLine)));
        block.cut = length > block.lines * perLine;
        block.text = block.cut ? std::string(text.substr(0, static_cast<std::size_t>(block.lines * perLine) - 1)) + "…"
                               : std::string(text);
        block.width = std::min(length, perLine) * advance;
        return block;
    }
};

}  // namespace orvel::test
