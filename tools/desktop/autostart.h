// Whether the card comes up with a person's session. The installed autostart entry is a model that nothing reads; a
// copy among the person's own settings turns it on.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct Autostart {
    bool isOn;                                ///< the card comes up with the next session
    std::optional<std::string> warning = {};  ///< one line, when it won't although it is on
};

Outcome<Autostart> autostart(const Platform& platform);
/// Prints "on" or "off".
Outcome<Done> showAutostart(const Platform& platform, Console& console);
/// From the next session on.
Outcome<Done> turnAutostartOn(const Platform& platform);
/// Also undoes `systemctl --user enable`. Off already is fine.
Outcome<Done> turnAutostartOff(const Platform& platform);

}  // namespace orvel::tools
