// Files as a person names them on the command line: "-" is standard input or output.
#pragma once

#include <string>
#include <string_view>

#include "platform/foundation/files.h"
#include "tools/console.h"

namespace orvel::tools {

/// The whole of a file of any kind that can be read.
Outcome<std::string> readInput(const std::string& name, Console& console);

/// Replaces the file in one step.
Outcome<Done> writeOutput(const std::string& name, std::string_view bytes, Files& files, Console& console);

/// What to call it in a message.
std::string displayName(const std::string& name);

}  // namespace orvel::tools
