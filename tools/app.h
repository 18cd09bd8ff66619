// Declares the command's words and options. Parsing fills in a session and runs nothing yet. Help, manual page and
// completions are made from the same declaration, which is in the language that sentences have when it is made.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "tools/core/session.h"

namespace orvel::tools {

/// The session must outlive the app.
std::unique_ptr<CLI::App> makeApp(Session& session);

}  // namespace orvel::tools
