// Whether the cards start with a person's session. The installed autostart entry is a template that no desktop reads; a
// copy of it in the person's settings turns the autostart on.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct Autostart {
    bool isOn;                                ///< the cards start with the next session
    std::optional<std::string> warning = {};  ///< one line, when they won't although it is on
};

Outcome<Autostart> autostart(const Platform& platform);
/// Prints "on" or "off".
Outcome<Done> showAutostart(const Platform& platform, Console& console);
/// From the next session on.
Outcome<Done> turnAutostartOn(const Platform& platform);
/// Also undoes `systemctl --user enable`. Off already is fine.
Outcome<Done> turnAutostartOff(const Platform& platform);

}  // namespace orvel::tools
