#include "tools/design/commands.h"

#include <memory>

#include "platform/language/sentence.h"
#include "tools/core/shared_options.h"
#include "tools/design/design.h"

namespace orvel::tools {

void addDesignCommands(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("design", sentence("Open the designer in your browser, until you close its page"));
    const auto choices = std::make_shared<DesignChoices>();
    command.add_option("design", choices->reference, sentence("An id, the beginning of one, or a position such as @1"))
        ->type_name("ID");
    command.add_flag("--no-browser", choices->printsAddress, sentence("Print the page's address instead"));
    command.add_option("--port", choices->port, sentence("The port to serve it on (default: any free one)"))
        ->type_name("N")
        ->check(numberWithin(1, 65535));
    runs(command, session, choices, design);
    addExample(command, "orvel design @2");
}

}  // namespace orvel::tools
