#include "tools/app.h"

#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"
#include "tools/card/commands.h"
#include "tools/core/usage.h"
#include "tools/design/commands.h"
#include "tools/desktop/commands.h"
#include "tools/doctor/commands.h"
#include "tools/feeds/commands.h"
#include "tools/store/commands.h"

namespace orvel::tools {
namespace {

void addHelp(CLI::App& app, Session& session) {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App& command =
        *app.add_subcommand("help", sentence("Explain a command and its options, or list the commands"));
    command.add_option("words", *words, sentence("Such as set, or pending set (default: all commands)"))
        ->type_name("COMMAND");
    command.callback([&session, words] {
        session.operation = [&session, words](const Platform&) -> Outcome<Done> {
            const auto explained = makeApp(session);  // in the person's language
            const CLI::App* const found = findCommand(*explained, *words);
            if (!found) return Failure{unknownCommand(*explained, joined(*words, " ")), Failure::Cause::request};
            // The parser would explain what was called, which is this command.
            session.console.out << found->get_formatter()->make_help(found, "", CLI::AppFormatMode::Normal);
            return Done{};
        };
    });
}

}  // namespace

std::unique_ptr<CLI::App> makeApp(Session& session) {
    auto app = std::make_unique<CLI::App>(
        sentence("Keeps your designs, draws them, and shows them as cards on the desktop."), "orvel");
    app->require_subcommand(0, 1);
    app->formatter(helpFormatter());
    app->set_help_flag("-h,--help", sentence("Print this help message and exit"));
    app->set_version_flag("-V,--version", "orvel " ORVEL_VERSION, sentence("Print the version"));
    addStoreCommands(*app, session);
    addCardCommands(*app, session);
    addDesktopCommands(*app, session);
    addFeedCommands(*app, session);
    addDesignCommands(*app, session);
    addDoctorCommand(*app, session);
    addHelp(*app, session);
    nameGroups(*app);
    return app;
}

}  // namespace orvel::tools
