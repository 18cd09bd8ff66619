// All kinds of cards in both sizes, and the empty state, on one sheet.
#pragma once

#include "tools/card/drawing.h"

namespace orvel::tools {

Outcome<Done> gallery(const DrawingChoices& drawing, const Platform& platform, Console& console);

}  // namespace orvel::tools
