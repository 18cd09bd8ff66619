// What a view inherits from the modifiers and the stack around it.
#pragma once

#include <optional>

#include "platform/ui/axis.h"
#include "platform/ui/style.h"
#include "platform/ui/text_fit.h"

namespace orvel {

struct Environment {
    TextStyle text;
    std::optional<Color> foreground = {};  ///< absent: the default style
    HierarchicalShapeStyle level = HierarchicalShapeStyle::primary;
    std::optional<Axis> stackAxis = {};  ///< absent outside a row or column

    /// With that style, for everything inside.
    Environment withForeground(const ShapeStyle& style) const;
    Environment outsideStack() const;

    Color foregroundColor() const { return color(level); }
    Color color(const ShapeStyle& style) const;

    friend bool operator==(const Environment&, const Environment&) = default;
};

/// The primary to quaternary levels of the default style in dark appearance: white at these opacities.
double opacity(HierarchicalShapeStyle level);

}  // namespace orvel
