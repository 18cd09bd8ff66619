// This project's programs that nobody calls by name: the command becomes them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/core/console.h"

namespace orvel::tools {

/// Beside the command where it is built, and apart from the programs that people call where it is installed.
std::filesystem::path ownProgram(const std::string& name);

/// Returns only when it can't, with why. `what` is what the program is for: "designer".
Failure become(const std::string& program, const std::string& what, std::vector<std::string> arguments,
               Console& console);

}  // namespace orvel::tools
