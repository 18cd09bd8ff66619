// A design in the person's text editor.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Opens the design's record, indented, or the first design's; checks what comes back, opens it again where it is
/// wrong, and stores it in its place. A design that changed meanwhile isn't overwritten. What the person wrote and
/// isn't stored stays in a file that the failure names.
Outcome<Done> edit(const std::optional<std::string>& reference, const Platform& platform, Console& console);

}  // namespace orvel::tools
