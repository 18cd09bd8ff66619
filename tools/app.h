// The command's words and options, each beside its operation. Parsing fills in a session; nothing runs yet. The same
// description gives the help, the manual pages and the shells' completions.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

#include "tools/session.h"

namespace orvel::tools {

/// The session must outlive the app.
std::unique_ptr<CLI::App> makeApp(Session& session);

void addAutostartCommands(CLI::App& app, Session& session);
void addDesktopCommands(CLI::App& app, Session& session);
void addDrawingCommands(CLI::App& app, Session& session);
void addReadingCommands(CLI::App& app, Session& session);
void addStoreCommands(CLI::App& app, Session& session);
void addSymbolCommands(CLI::App& app, Session& session);

}  // namespace orvel::tools
