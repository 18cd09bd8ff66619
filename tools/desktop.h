// The card on the desktop, as a person chooses it, and the monitors to choose from.
#pragma once

#include "platform/foundation/platform.h"
#include "platform/host/timeline.h"
#include "platform/window/placement.h"
#include "tools/console.h"

namespace orvel::tools {

/// Runs until the process is asked to end, or the window system goes away, which is a failure.
Outcome<Done> desktop(WidgetFamily family, const Placement& placement, const Platform& platform, Console& console);

enum class OutputsForm { names, json };

/// Prints the monitors, one on each line.
Outcome<Done> outputs(OutputsForm form, Console& console);

}  // namespace orvel::tools
