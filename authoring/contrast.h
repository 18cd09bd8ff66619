// How well colours can be told apart.
#pragma once

#include "platform/ui/style.h"

namespace orvel {

/// The contrast ratio of two opaque colours, from 1 to 21 (WCAG 2.2, "contrast ratio").
double contrast(const Color& a, const Color& b);

/// What WCAG 2.2 asks of graphics (success criterion 1.4.11).
inline constexpr double leastContrast = 3;

/// The colour, mixed with as little white as gives that contrast with a dark ground.
Color lightened(const Color& color, const Color& ground, double wanted = leastContrast);

}  // namespace orvel
