// This project's programs that nobody calls by name: the command becomes them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tools/core/console.h"

namespace orvel::tools {

/// Beside the command where it is built, and apart from the programs that people call where it is installed.
std::filesystem::path ownProgram(const std::string& name);

/// Returns only when it can't, with why: `cantStart` is the sentence, such as "can't start the designer: {0}".
Failure become(const std::string& program, std::string_view cantStart, std::vector<std::string> arguments,
               Console& console);

}  // namespace orvel::tools
