// How well a colour stands out against another one.
#pragma once

#include "platform/ui/style.h"

namespace orvel {

/// The contrast ratio of two opaque colours, from 1 to 21 (WCAG 2.2, "contrast ratio").
double contrast(const Color& a, const Color& b);

/// The least contrast of graphics in WCAG 2.2 (success criterion 1.4.11).
inline constexpr double leastContrast = 3;

/// The colour mixed with just enough white for that contrast with a dark background.
Color lightened(const Color& color, const Color& ground, double wanted = leastContrast);

}  // namespace orvel
