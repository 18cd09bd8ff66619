// Files as a person names them on the command line: "-" is standard input or output.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/files.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// The whole of a file of any kind that can be read.
Outcome<std::string> readInput(const std::string& name, Console& console);

/// Replaces the file in one step. When a loss of power may still bring the old one back, the failure's cause is
/// `afterwards`.
Outcome<Done> writeOutput(const std::string& name, std::string_view bytes, Files& files, Console& console);

/// Prints a line of JSON on standard output, with control characters escaped. When `json` is absent, it fails and says
/// that `what` can't be written as JSON.
Outcome<Done> printJson(const std::optional<std::string>& json, const char* what, Console& console);

/// Prints a line about a change that is made. A failure has the cause `afterwards`; a reader that has closed the pipe
/// isn't one.
Outcome<Done> printAfterwards(std::string_view line, Console& console);

/// What to call it in a message.
std::string displayName(const std::string& name);

}  // namespace orvel::tools
