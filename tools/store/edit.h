// A design in the person's text editor.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Opens the indented record of the design, or of the first one, and stores it when the editor ends. When the record
/// has a fault, opens it again there. A design that has changed meanwhile isn't overwritten. What the person wrote but
/// couldn't be stored stays in a file that the failure names.
Outcome<Done> edit(const std::optional<std::string>& reference, const Platform& platform, Console& console);

}  // namespace orvel::tools
