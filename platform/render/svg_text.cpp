#include "platform/render/svg_text.h"

#include <array>
#include <charconv>
#include <string_view>

#include "platform/foundation/markup.h"
#include "platform/render/shaped_text.h"
#include "platform/render/typeface.h"

namespace orvel {
namespace {

std::string number(double value) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 3);
    return {digits.data(), end.ptr};
}

std::string attribute(std::string_view name, const std::string& value) {
    return ' ' + std::string(name) + "=\"" + value + '"';
}

std::string element(const PangoLayoutLine& line, const TextMark& text, Point at, const std::string& turned) {
    PangoRectangle logical;
    pango_layout_line_get_extents(const_cast<PangoLayoutLine*>(&line), nullptr, &logical);
    const double width = points(logical.width) * text.scale;
    if (width <= 0) return {};
    const bool rightToLeft = line.resolved_dir == PANGO_DIRECTION_RTL;
    std::string made = "<text";
    made += attribute("x", number(rightToLeft ? at.x + width : at.x)) + attribute("y", number(at.y));
    made += attribute("font-size", number(text.font.size));
    made += attribute("font-weight", std::to_string(static_cast<int>(text.font.weight)));
    made += attribute("textLength", number(width)) + attribute("lengthAdjust", "spacingAndGlyphs");
    if (rightToLeft) made += attribute("direction", "rtl");
    return made + turned + '>' + escapedForMarkup(textOf(line)) + "</text>\n";
}

std::string elements(const Mark& mark, Point card) {
    const auto* const text = std::get_if<TextMark>(&mark.content);
    if (!text || !text->shaped) return {};
    std::string turned;
    if (mark.rotationDegrees != 0) {
        const Point center = mark.frame.center();
        turned = attribute("transform", "rotate(" + number(mark.rotationDegrees) + ' ' + number(card.x + center.x) +
                                            ' ' + number(card.y + center.y) + ')');
    }
    std::string made;
    Point at{card.x + mark.frame.origin.x, card.y + text->baseline};
    for (const PangoLayoutLine* line : text->shaped->lines) {
        made += element(*line, *text, at, turned);
        at.y += text->lineHeight;
    }
    return made;
}

}  // namespace

std::string svgText(const Picture& picture) {
    std::string made = "<g" + attribute("fill-opacity", "0") + attribute("xml:space", "preserve") +
                       attribute("font-family", std::string(systemFont) + ", sans-serif") + ">\n";
    for (const Picture::Card& card : picture.cards)
        for (const Mark& mark : card.scene.marks) made += elements(mark, card.origin);
    return made + "</g>\n";
}

}  // namespace orvel
