// The symbols that designs can name.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

struct SymbolChoices {
    std::string text;                    ///< what a name must contain, in any letter case
    std::optional<std::string> picture;  ///< a file, or "-", for a sheet of the symbols
};

/// Prints the names, one in each line, or draws the symbols with their names. No symbol is a failure.
Outcome<Done> symbols(const SymbolChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
