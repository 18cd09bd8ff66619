#include "tools/desktop/commands.h"

#include <memory>

#include "desktop/place_words.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"
#include "tools/core/shared_options.h"
#include "tools/desktop/autostart.h"
#include "tools/desktop/desktop.h"
#include "tools/desktop/place.h"

namespace orvel::tools {
namespace {

// An option whose value is a word of the table.
template <class Table, class Value>
void addWord(CLI::App& command, const std::string& name, std::optional<Value>& value, const Table& table,
             const std::string& help) {
    const auto choose = [&value, &table, name](const std::string& word) {
        value = place_words::valueOf(table, word);
        if (value) return;
        const auto known = place_words::words(table);
        throw CLI::ValidationError(name, wrongWord(word, {known.begin(), known.end()}));
    };
    command.add_option_function<std::string>(name, choose, help)->type_name(joined(place_words::words(table), "|"));
}

double marginLength(const std::string& text) {
    double points = -1;
    if (CLI::detail::lexical_cast(text, points) && points >= 0 && points <= 10000) return points;
    throw CLI::ValidationError("--margin",
                               sentence("\"{0}\": a number from 0 to 10000 is wanted, or two such as 24,48", text));
}

std::shared_ptr<PlaceChoices> addPlaceOptions(CLI::App& command, const std::string& designHelp) {
    const auto choices = std::make_shared<PlaceChoices>();
    PlaceChoices& place = *choices;
    command.add_option("design", place.reference, designHelp)->type_name("ID");
    addWord(command, "--family", place.family, place_words::families, sentence("The card's size (default: small)"));
    addWord(command, "--anchor", place.anchor, place_words::anchors,
            sentence("Where on the output (default: top-right)"));
    const auto margin = [&place](const std::string& text) {
        const auto comma = text.find(',');
        const double x = marginLength(text.substr(0, comma));
        place.margin = Margin{x, comma == text.npos ? x : marginLength(text.substr(comma + 1))};
    };
    command
        .add_option_function<std::string>(
            "--margin", margin, sentence("Points to the output's edges, or across and down apart (default: 24)"))
        ->type_name("N|X,Y");
    const auto output = [&place](const std::string& name) {
        using Which = OutputChoice::Which;
        place.output = name == "primary" ? OutputChoice{Which::primary}
                       : name == "all"   ? OutputChoice{Which::all}
                                         : OutputChoice{Which::named, name};
    };
    command
        .add_option_function<std::string>("--output", output,
                                          sentence("A monitor, as orvel outputs names it, or all (default: primary)"))
        ->type_name("NAME|primary|all");
    addWord(command, "--layer", place.layer, place_words::layers,
            sentence("Under or above the windows (default: bottom)"));
    command
        .add_option("--click", place.click,
                    sentence("What a click does: design opens the designer; an address is opened, a command run; none "
                             "(default) lets clicks through"))
        ->type_name("design|none|URL|COMMAND");
    return choices;
}

void addDesktop(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("desktop", sentence("Keep your cards on the desktop until this command is ended"));
    const auto choices = addPlaceOptions(
        command, sentence("Only this design: an id, or a position such as @2 (default: all that have a place)"));
    command.add_flag("--no-feeds", choices->withoutFeeds, sentence("Don't run the feeds as well"));
    runs(command, session, choices, desktop);
    addExample(command, "orvel desktop @2 --family medium --anchor left");
}

void addPlace(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("place", sentence("Put a design on the desktop, change its place, or list places"));
    const auto choices = addPlaceOptions(command, sentence("An id, the beginning of one, or a position such as @1"));
    const auto json = std::make_shared<bool>(false);
    command.add_flag("--json", *json, sentence("The list as JSON"));
    command.callback([&session, choices, json] {
        session.operation = [&session, choices, json](const Platform& platform) {
            if (choices->isEmpty())
                return listPlaces(*json ? PlacesForm::json : PlacesForm::table, platform, session.console);
            return place(*choices, platform, session.console);
        };
    });
    addExample(command, "orvel place @1 --anchor bottom-right --output all");
}

void addUnplace(CLI::App& app, Session& session) {
    const auto reference = std::make_shared<std::string>();
    CLI::App& command = *app.add_subcommand("unplace", sentence("Take a design off the desktop; it stays stored"));
    command
        .add_option("design", *reference,
                    sentence("Its id, its position such as @1, or its number in the list of places"))
        ->required()
        ->type_name("ID");
    runs(command, session, reference, unplace);
    addExample(command, "orvel unplace @1");
}

void addOutputs(CLI::App& app, Session& session) {
    const auto form = std::make_shared<OutputsForm>(OutputsForm::names);
    CLI::App& command = *app.add_subcommand("outputs", sentence("Print the names of the monitors"));
    command.add_flag_callback(
        "--json", [form] { *form = OutputsForm::json; }, sentence("As JSON, with sizes and scales"));
    command.callback([&session, form] {
        session.operation = [&session, form](const Platform&) { return outputs(*form, session.console); };
    });
}

void addAutostart(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("autostart", sentence("Print whether the cards start with your session, or change it"));
    const auto choice = std::make_shared<std::string>();
    command.add_option("choice", *choice, sentence("From the next session on (default: print the current state)"))
        ->check(oneWordOf({"on", "off"}))
        ->type_name("on|off");
    command.callback([&session, choice] {
        session.operation = [&session, choice](const Platform& platform) {
            if (choice->empty()) return showAutostart(platform, session.console);
            return *choice == "on" ? turnAutostartOn(platform) : turnAutostartOff(platform);
        };
    });
}

}  // namespace

void addDesktopCommands(CLI::App& app, Session& session) {
    addDesktop(app, session);
    addPlace(app, session);
    addUnplace(app, session);
    addOutputs(app, session);
    addAutostart(app, session);
}

}  // namespace orvel::tools
