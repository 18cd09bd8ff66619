// Feeds: their words and options.
#pragma once

#include "tools/core/session.h"

namespace CLI {
class App;
}

namespace orvel::tools {

/// The session must outlive the app.
void addFeedCommands(CLI::App& app, Session& session);

}  // namespace orvel::tools
