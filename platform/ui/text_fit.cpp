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
        lineHeight_ = std::ceil(natural);
        baseline_ = (lineHeight_ - natural) / 2 + metrics.ascent;
    }

    FittedText fit() {
        TextBlock whole = layOut(1);
        const double least = std::clamp(style_.minimumScaleFactor, 0.01, 1.0);
        if (least == 1 || fits(whole, 1)) return fitted(std::move(whole), 1);
        if (mostLines(least) == 1) return fitOneLine(least);
        return fitLines(least);
    }

private:
    // A line's width is in proportion to its size, so one measurement gives the scale.
    FittedText fitOneLine(double least) {
        TextBlock natural = engine_.layOut(text_, style_.font, std::nullopt, 1);
        if (!natural.cut) {
            const double byWidth = proposal_.width && natural.width > 0 ? *proposal_.width / natural.width : 1;
            const double byHeight = proposal_.height ? *proposal_.height / lineHeight_ : 1;
            const double scale = std::min({1.0, byWidth, byHeight});
            if (scale >= least) return fitted(std::move(natural), scale);
        }
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
        return engine_.layOut(text_, style_.font, width, mostLines(scale));
    }

    bool fits(const TextBlock& block, double scale) const {
        return !block.cut && (!proposal_.height || block.lines * lineHeight_ * scale <= *proposal_.height) &&
               (!proposal_.width || block.width * scale <= *proposal_.width);
    }

    int mostLines(double scale) const {
        int most = mostTextLines;
        if (style_.lineLimit) most = std::min(most, std::max(*style_.lineLimit, 1));
        if (proposal_.height) {
            constexpr double rounding = 1e-6;
            const double whole = std::floor(*proposal_.height / (lineHeight_ * scale) + rounding);
            most = static_cast<int>(std::clamp(whole, 1.0, static_cast<double>(most)));
        }
        return most;
    }

    FittedText fitted(TextBlock block, double scale) const {
        const Size size{block.width * scale, block.lines * lineHeight_ * scale};
        return {std::move(block), scale, size, lineHeight_ * scale, baseline_ * scale};
    }

    std::string_view text_;
    const TextStyle& style_;
    const ProposedSize& proposal_;
    TextEngine& engine_;
    double lineHeight_ = 0;
    double baseline_ = 0;
};

}  // namespace

FittedText fitText(std::string_view text, const TextStyle& style, const ProposedSize& proposal, TextEngine& engine) {
    if (text.empty()) return {};
    return TextFitter(text, style, proposal, engine).fit();
}

}  // namespace orvel
