// The symbols that match the words of a search, with their outlines for a page to draw.
#pragma once

#include <string>
#include <string_view>

#include "platform/symbols/symbols.h"

namespace orvel::designer {

/// {"count":N,"next":M,"symbols":[{"name":"flag.fill","path":"M…"}]}: the best ones first, beginning with `from`;
/// how many there are in all, and where the next part begins. A path is SVG's, in a square of 100 units.
std::string symbolsJson(const Symbols& symbols, std::string_view words, std::size_t from = 0);

}  // namespace orvel::designer
