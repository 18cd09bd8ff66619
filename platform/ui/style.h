// Colours, fonts and strokes as plain values.
#pragma once

#include <string>
#include <variant>

namespace orvel {

/// sRGB, not premultiplied; every component in 0...1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    /// The platform's accent colour, #0A84FF.
    static const Color accentColor;

    Color withOpacity(double factor) const { return {red, green, blue, opacity * factor}; }
    friend bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color Color::accentColor{10 / 255.0, 132 / 255.0, 255 / 255.0, 1.0};

/// "#RRGGBBAA", each component rounded to 8 bits.
std::string hexText(const Color& color);

/// A level of the current foreground style, or of the default style where none is set.
enum class HierarchicalShapeStyle { primary, secondary, tertiary, quaternary };

const char* name(HierarchicalShapeStyle level);

using ShapeStyle = std::variant<HierarchicalShapeStyle, Color>;

struct Font {
    /// Numbers as in OpenType's usWeightClass.
    enum class Weight { regular = 400, medium = 500, semibold = 600, bold = 700, heavy = 800, black = 900 };

    double size = 13;
    Weight weight = Weight::regular;

    /// The system font. Points.
    static constexpr Font system(double size, Weight weight = Weight::regular) { return {size, weight}; }

    // Text styles of the desktop.
    static const Font body;  ///< what applies where no font is set
    static const Font caption2;

    friend bool operator==(const Font&, const Font&) = default;
};

inline constexpr Font Font::body{13, Font::Weight::regular};
inline constexpr Font Font::caption2{10, Font::Weight::medium};

enum class LineCap { butt, round, square };
enum class LineJoin { miter, round, bevel };
const char* name(LineCap cap);
const char* name(LineJoin join);

/// A solid line, centred on the outline it follows.
struct StrokeStyle {
    double lineWidth = 1;
    LineCap lineCap = LineCap::butt;
    LineJoin lineJoin = LineJoin::miter;
    double miterLimit = 10;
    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

}  // namespace orvel
