// symbols.
#include <memory>

#include "tools/app.h"
#include "tools/symbols_command.h"

namespace orvel::tools {

void addSymbolCommands(CLI::App& app, Session& session) {
    const auto choices = std::make_shared<SymbolChoices>();
    CLI::App& command = *app.add_subcommand("symbols", "List the symbols that a design can name");
    command.add_option("text", choices->text, "Only names that contain it")->type_name("TEXT");
    command.add_option("--picture", choices->picture, "Draw them instead, as a sheet: .png, .svg or .pdf; - is PNG")
        ->type_name("FILE|-");
    command.callback([&session, choices] {
        session.operation = [&session, choices](const Platform& platform) {
            return symbols(*choices, platform, session.console);
        };
    });
}

}  // namespace orvel::tools
