// Symbols that go with words, with their outlines for a page to draw.
#pragma once

#include <string>
#include <string_view>

#include "platform/symbols/symbols.h"

namespace orvel::designer {

/// {"count":N,"next":M,"symbols":[{"name":"flag.fill","path":"M…"}]}: the best ones first, from that one on; how many
/// there are in all, and from where to go on. A path is SVG's, in a square of 100 units.
std::string symbolsJson(const Symbols& symbols, std::string_view words, std::size_t from = 0);

}  // namespace orvel::designer
