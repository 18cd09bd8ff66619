// One card drawn into a file.
#pragma once

#include "tools/card/drawing.h"
#include "tools/card/shown_card.h"

namespace orvel::tools {

struct RenderChoices {
    CardChoices card = {};
    DrawingChoices drawing = {.output = "widget.png"};
    bool watch = false;  ///< draws again whenever the card changes, until the process is asked to end
};

/// When the store isn't valid, draws the card that the desktop shows meanwhile, and fails.
Outcome<Done> render(const RenderChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
