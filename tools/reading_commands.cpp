// check and show.
#include <memory>

#include "tools/app.h"
#include "tools/check.h"
#include "tools/shared_options.h"
#include "tools/words.h"

namespace orvel::tools {
namespace {

void addCheck(CLI::App& app, Session& session) {
    const auto file = std::make_shared<std::optional<std::string>>();
    CLI::App& command = *app.add_subcommand("check", "Say whether the designs load, and what won't show as meant");
    command.add_option("file", *file, "A list of designs; - is standard input (default: the store)")
        ->type_name("FILE|-");
    command.callback([&session, file] {
        session.operation = [&session, file](const Platform& platform) {
            return check(*file, platform, session.console);
        };
    });
}

void addShow(CLI::App& app, Session& session) {
    struct Choices {
        std::optional<std::string> design;
        WordsForm form = WordsForm::text;
    };
    const auto choices = std::make_shared<Choices>();
    CLI::App& command = *app.add_subcommand("show", "Print the card that the desktop would show, as words");
    auto* const json = command.add_flag_callback(
        "--json", [choices] { choices->form = WordsForm::json; }, "As JSON");
    command
        .add_flag_callback(
            "--waybar", [choices] { choices->form = WordsForm::waybar; }, "As the object of the bar's custom module")
        ->excludes(json);
    command.add_option("--design", choices->design, "A design, or a list whose first counts; - is standard input")
        ->type_name("FILE|-");
    addInstantOption(command, session);
    command.callback([&session, choices] {
        session.operation = [&session, choices](const Platform& platform) {
            return show(choices->design, choices->form, platform, session.console);
        };
    });
}

}  // namespace

void addReadingCommands(CLI::App& app, Session& session) {
    addCheck(app, session);
    addShow(app, session);
}

}  // namespace orvel::tools
