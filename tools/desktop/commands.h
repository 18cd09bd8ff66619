// desktop, place, unplace, outputs, autostart: their words and options.
#pragma once

#include "tools/core/session.h"

namespace CLI {
class App;
}

namespace orvel::tools {

/// The session must outlive the app.
void addDesktopCommands(CLI::App& app, Session& session);

}  // namespace orvel::tools
