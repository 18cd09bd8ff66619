// The operations of the orvel command. Each does one thing and tells how it went; none exits or prints a failure.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/card_choices.h"
#include "tools/console.h"
#include "tools/drawing.h"

namespace orvel::tools {

/// Draws one card into a file.
Outcome<Done> render(const CardChoices& card, const DrawingChoices& drawing, const Platform& platform,
                     Console& console);

/// Prints a card's tree and marks as JSON.
Outcome<Done> inspect(const CardChoices& card, const Platform& platform, Console& console);

/// Prints the timeline provider's three answers as JSON.
Outcome<Done> timeline(const Platform& platform, Console& console);

/// Draws all kinds in both sizes, and the empty state, on one sheet.
Outcome<Done> gallery(const DrawingChoices& drawing, const Platform& platform, Console& console);

}  // namespace orvel::tools
