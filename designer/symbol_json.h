// Symbols that go with words, with their outlines for a page to draw.
#pragma once

#include <string>
#include <string_view>

#include "platform/symbols/symbols.h"

namespace orvel::designer {

/// {"count":N,"symbols":[{"name":"flag.fill","path":"M…"}]}: the best ones first, and how many there are. A path is
/// SVG's, in a square of 100 units.
std::string symbolsJson(const Symbols& symbols, std::string_view words);

}  // namespace orvel::designer
