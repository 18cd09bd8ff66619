// A card's view tree and marks, printed as JSON.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/card/shown_card.h"

namespace orvel::tools {

Outcome<Done> inspect(const CardChoices& card, const Platform& platform, Console& console);

}  // namespace orvel::tools
