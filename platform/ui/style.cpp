#include "platform/ui/style.h"

#include <algorithm>
#include <cmath>

namespace orvel {

std::string hexText(const Color& color) {
    std::string text = "#";
    for (const double component : {color.red, color.green, color.blue, color.opacity}) {
        const int byte = static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
        text += "0123456789ABCDEF"[byte >> 4];
        text += "0123456789ABCDEF"[byte & 0xF];
    }
    return text;
}

const char* name(HierarchicalShapeStyle level) {
    switch (level) {
        case HierarchicalShapeStyle::primary: return "primary";
        case HierarchicalShapeStyle::secondary: return "secondary";
        case HierarchicalShapeStyle::tertiary: return "tertiary";
        case HierarchicalShapeStyle::quaternary: return "quaternary";
    }
    return "";
}

const char* name(LineCap cap) {
    switch (cap) {
        case LineCap::butt: return "butt";
        case LineCap::round: return "round";
        case LineCap::square: return "square";
    }
    return "";
}

const char* name(LineJoin join) {
    switch (join) {
        case LineJoin::miter: return "miter";
        case LineJoin::round: return "round";
        case LineJoin::bevel: return "bevel";
    }
    return "";
}

}  // namespace orvel
