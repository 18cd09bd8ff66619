// autostart.
#include <memory>

#include "tools/app.h"
#include "tools/autostart.h"

namespace orvel::tools {

void addAutostartCommands(CLI::App& app, Session& session) {
    CLI::App& command = *app.add_subcommand("autostart", "Say whether the card comes up with your session, or set it");
    const auto choice = std::make_shared<std::string>();
    command.add_option("choice", *choice, "From the next session on (default: print which)")
        ->check(CLI::IsMember({"on", "off"}))
        ->type_name("on|off");
    command.callback([&session, choice] {
        session.operation = [&session, choice](const Platform& platform) {
            if (choice->empty()) return showAutostart(platform, session.console);
            return *choice == "on" ? turnAutostartOn(platform) : turnAutostartOff(platform);
        };
    });
}

}  // namespace orvel::tools
