#include "platform/ui/environment.h"

namespace orvel {

Environment Environment::withForeground(const ShapeStyle& style) const {
    Environment inner = *this;
    if (const auto* inherited = std::get_if<HierarchicalShapeStyle>(&style)) {
        inner.level = *inherited;
    } else {
        inner.foreground = std::get<Color>(style);
        inner.level = HierarchicalShapeStyle::primary;
    }
    return inner;
}

Environment Environment::outsideStack() const {
    Environment inner = *this;
    inner.stackAxis.reset();
    return inner;
}

Color Environment::color(const ShapeStyle& style) const {
    if (const auto* color = std::get_if<Color>(&style)) return *color;
    const auto wanted = std::get<HierarchicalShapeStyle>(style);
    if (!foreground) return Color{1, 1, 1, 1}.withOpacity(opacity(wanted));
    // A level of a colour is weaker in the same proportion as that level of the default style.
    return foreground->withOpacity(opacity(wanted) / opacity(HierarchicalShapeStyle::primary));
}

double opacity(HierarchicalShapeStyle level) {
    switch (level) {
        case HierarchicalShapeStyle::primary: return 0.85;
        case HierarchicalShapeStyle::secondary: return 0.55;
        case HierarchicalShapeStyle::tertiary: return 0.25;
        case HierarchicalShapeStyle::quaternary: return 0.10;
    }
    return 1;
}

}  // namespace orvel
