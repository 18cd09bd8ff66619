// The orvel command: its words and options, and what they do.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Runs the command with the arguments of `main` and returns its exit code.
int run(int argc, const char* const* argv, const Platform& platform, Console console);

}  // namespace orvel::tools
