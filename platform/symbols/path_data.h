// Outlines as text.
#pragma once

#include <string_view>

#include "platform/ui/symbol_set.h"

namespace orvel {

/// The SVG path data commands M, L, Q, C and Z (https://www.w3.org/TR/SVG2/paths.html), every word after a space, the
/// numbers whole and in hundredths of the square's side. Reading ends where it is none of this.
SymbolOutline outlineOfPathData(std::string_view text);

}  // namespace orvel
