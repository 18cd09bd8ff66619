// Whether the card comes up with a person's session. The installed autostart entry is a model that nothing reads; a
// copy among the person's own settings turns it on.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

/// Prints "on" or "off".
Outcome<Done> showAutostart(const Platform& platform, Console& console);
/// From the next session on.
Outcome<Done> turnAutostartOn(const Platform& platform);
/// Also undoes `systemctl --user enable`. Off already is fine.
Outcome<Done> turnAutostartOff(const Platform& platform);

}  // namespace orvel::tools
