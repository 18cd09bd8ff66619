#include "platform/ui/text_fit.h"

#include <algorithm>
#include <cmath>

namespace orvel {
namespace {

class TextFitter {
public:
    TextFitter(std::string_view text, const TextStyle& style, const ProposedSize& proposal, TextEngine& engine)
        : text_(text), style_(style), proposal_(proposal), engine_(engine) {
        const FontMetrics metrics = engine.metrics(style.font);
        const double natural = metrics.ascent + metrics.descent;
        line_.height = std::ceil(natural);
        line_.baseline = (line_.height - natural) / 2 + metrics.ascent;
    }

    FittedText fit() {
        TextBlock whole = layOut(1);
        const double least = std::clamp(style_.minimumScaleFactor, 0.01, 1.0);
        if (least == 1 || fits(whole, 1)) return fitted(std::move(whole), 1);
        // Some texts are cut at any width, because of their own line breaks; shrinking wouldn't show more of them.
        most_ = engine_.layOut(text_, style_.font, std::nullopt, mostLines(least, line_.height));
        if (fits(whole, 1)) return fitted(std::move(whole), 1);
        if (mostLines(least, line_.height) == 1) return fitOneLine(least);
        return fitLines(least);
    }

private:
    struct Line {
        double height = 0;
        double baseline = 0;
    };

    // A line's width is in proportion to its size, so one measurement gives the scale.
    FittedText fitOneLine(double least) {
        const double byWidth = proposal_.width && most_->width > 0 ? *proposal_.width / most_->width : 1;
        const double byHeight = proposal_.height ? *proposal_.height / lineOf(*most_).height : 1;
        const double scale = std::min({1.0, byWidth, byHeight});
        if (scale >= least) return fitted(*std::move(most_), scale);
        return fitted(layOut(least), least);
    }

    FittedText fitLines(double least) {
        TextBlock best = layOut(least);
        if (!fits(best, least)) return fitted(std::move(best), least);
        double fitting = least;
        double tooLarge = 1;
        for (int step = 0; step < 16; ++step) {
            const double middle = (fitting + tooLarge) / 2;
            TextBlock block = layOut(middle);
            if (fits(block, middle)) {
                fitting = middle;
                best = std::move(block);
            } else {
                tooLarge = middle;
            }
        }
        return fitted(std::move(best), fitting);
    }

    TextBlock layOut(double scale) const {
        const auto width = proposal_.width ? std::optional(*proposal_.width / scale) : std::nullopt;
        TextBlock block = engine_.layOut(text_, style_.font, width, mostLines(scale, line_.height));
        const int most = mostLines(scale, lineOf(block).height);
        if (block.lines > most) block = engine_.layOut(text_, style_.font, width, most);
        return block;
    }

    bool fits(const TextBlock& block, double scale) const {
        const bool complete = !block.cut || (most_ && block.text == most_->text);
        return complete && (!proposal_.height || block.lines * lineOf(block).height * scale <= *proposal_.height) &&
               (!proposal_.width || block.width * scale <= *proposal_.width);
    }

    int mostLines(double scale, double lineHeight) const {
        int most = mostTextLines;
        if (style_.lineLimit) most = std::min(most, std::max(*style_.lineLimit, 1));
        if (proposal_.height) {
            constexpr double rounding = 1e-6;
            const double whole = std::floor(*proposal_.height / (lineHeight * scale) + rounding);
            most = static_cast<int>(std::clamp(whole, 1.0, static_cast<double>(most)));
        }
        return most;
    }

    // The ink of other faces stays within its line, a little away from the next: on another baseline if that suffices,
    // else in a higher line.
    Line lineOf(const TextBlock& block) const {
        const auto [ascent, descent] = block.otherFaces;
        if (ascent <= line_.baseline && descent <= line_.height - line_.baseline) return line_;
        const double air = style_.font.size / 20;
        const double ink = ascent + descent;
        const double height = ink <= line_.height ? line_.height : std::ceil(ink + 2 * air);
        const double around = std::min(air, (height - ink) / 2);
        const double inTheMiddle = line_.baseline + (height - line_.height) / 2;
        return {height, std::min(std::max(inTheMiddle, ascent + around), height - descent - around)};
    }

    FittedText fitted(TextBlock block, double scale) const {
        const Line line = lineOf(block);
        const Size size{block.width * scale, block.lines * line.height * scale};
        return {std::move(block), scale, size, line.height * scale, line.baseline * scale};
    }

    std::string_view text_;
    const TextStyle& style_;
    const ProposedSize& proposal_;
    TextEngine& engine_;
    Line line_;
    std::optional<TextBlock> most_;  // what an unbounded width would show
};

}  // namespace

FittedText fitText(std::string_view text, const TextStyle& style, const ProposedSize& proposal, TextEngine& engine) {
    return TextFitter(text, style, proposal, engine).fit();
}

}  // namespace orvel
