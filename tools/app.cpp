#include "tools/app.h"

namespace orvel::tools {

std::unique_ptr<CLI::App> makeApp(Session& session) {
    auto app = std::make_unique<CLI::App>("Small cards for the desktop: draws and explains the designs in your store.",
                                          "orvel");
    app->require_subcommand(0, 1);
    app->set_version_flag("--version", "orvel " ORVEL_VERSION, "Print the version");
    addStoreCommands(*app, session);
    addReadingCommands(*app, session);
    addDrawingCommands(*app, session);
    addSymbolCommands(*app, session);
    addDesktopCommands(*app, session);
    addAutostartCommands(*app, session);
    return app;
}

}  // namespace orvel::tools
