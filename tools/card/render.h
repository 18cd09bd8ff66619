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

/// A store that doesn't load is drawn as the empty state, and then is a failure.
Outcome<Done> render(const RenderChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
