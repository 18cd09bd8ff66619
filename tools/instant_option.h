// The option that fixes the clock, for the commands that have it.
#pragma once

#include <CLI/CLI.hpp>

#include "tools/session.h"

namespace orvel::tools {

void addInstantOption(CLI::App& command, Session& session);

}  // namespace orvel::tools
