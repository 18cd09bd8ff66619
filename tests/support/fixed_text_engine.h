// A text engine for layouts by hand: every character of a text is half as wide as the font's size, a line as high as
// it.
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
        const std::size_t perLine =
            width ? static_cast<std::size_t>(std::max(1.0, std::floor(*width / advance + 1e-9))) : text.size();
        TextBlock block;
        std::size_t longest = 0;
        while (!text.empty() && block.lines < mostLines) {
            std::size_t length = std::min(perLine, text.size());
            const bool last = block.lines + 1 == mostLines;
            if (length < text.size() && !last) {
                const auto space = text.rfind(' ', length);
                if (space != text.npos && space > 0) length = space;
            }
            block.cut = last && length < text.size();
            block.text +=
                block.cut ? std::string(text.substr(0, length - 1)) + "…" : std::string(text.substr(0, length));
            longest = std::max(longest, length);
            text.remove_prefix(length);
            if (!text.empty() && text.front() == ' ') {
                text.remove_prefix(1);
                if (!text.empty() && !block.cut) block.text += ' ';
            }
            ++block.lines;
        }
        block.width = static_cast<double>(longest) * advance;
        return block;
    }
};

}  // namespace orvel::test
