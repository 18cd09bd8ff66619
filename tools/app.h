// The command's words and options. Parsing fills in a session; nothing runs yet. The same description gives the help,
// the manual pages and the shells' completions.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "tools/core/session.h"

namespace orvel::tools {

/// The session must outlive the app.
std::unique_ptr<CLI::App> makeApp(Session& session);

}  // namespace orvel::tools
