// Symbols composed of others, as described by a line of a table.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/ui/symbol_set.h"

namespace orvel {

/// Finds the outline of a part by its name.
using Parts = std::function<std::optional<SymbolOutline>(std::string_view name)>;

enum class SymbolWeight { outlined, filled };

/// Parts with a sign between each two, such as "calendar + clock.fill" or "circle * leaf@50,46,50":
///   +  in front of what comes before it, with space around; a badge at the lower right
///   *  within it: drawn in a shape that is a line, cut out of one that is an area
///   |  beside it
///   -  its place is left free
/// A part's place may follow it: the middle's x and y, the size, and the degrees of a turn clockwise, the lengths in
/// hundredths of the symbol's side; a negative size mirrors it. Absent when a part is, or the text isn't as above.
///
/// Filled, the first part is the one with ".fill", and so are those that have one and don't stand within others.
std::optional<SymbolOutline> composed(std::string_view text, SymbolWeight weight, const Parts& parts);

}  // namespace orvel
