// The symbols that designs can name.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct SymbolChoices {
    std::string text;                    ///< a part of a name, or everyday words; empty for all
    std::optional<std::string> picture;  ///< a file, or "-", for a sheet of the symbols
};

/// Prints the names, one on each line and the best first, or draws the symbols with their names. Finding none is a
/// failure.
Outcome<Done> symbols(const SymbolChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
