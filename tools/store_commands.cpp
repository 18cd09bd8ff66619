// add, set, front, remove, list and pending.
#include <memory>

#include "tools/app.h"
#include "tools/store_operations.h"

namespace orvel::tools {
namespace {

// Lets the parsed command run that operation on its arguments.
template <class Arguments, class Operation>
void runs(CLI::App& command, Session& session, std::shared_ptr<Arguments> arguments, Operation operation) {
    command.callback([&session, arguments, operation] {
        session.operation = [&session, arguments, operation](const Platform& platform) {
            return operation(*arguments, platform, session.console);
        };
    });
}

void addAdd(CLI::App& app, Session& session) {
    const auto design = std::make_shared<NewDesign>();
    CLI::App& command = *app.add_subcommand("add", "Store a design in front of the others, and print its id");
    auto* const json = command.add_option("--json", design->json, "A record as JSON; id and createdAt may be missing")
                           ->type_name("FILE|-");
    auto* const kind = command.add_option("--kind", design->kind, "What the card shows")
                           ->check(CLI::IsMember({"metric", "progress", "list", "note", "countdown"}))
                           ->type_name("metric|progress|list|note|countdown");
    auto* const title = command.add_option("--title", design->title, "The caption")->type_name("TEXT");
    command.add_option("--primary", design->primary, "The large text of a metric or a note")->type_name("TEXT");
    command.add_option("--secondary", design->secondary, "The last line")->type_name("TEXT");
    command.add_option("--item", design->items, "A row of a list; give it again for the next")
        ->type_name("TEXT")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_option("--progress", design->progress, "The ring, from 0 to 1")->type_name("NUMBER");
    command
        .add_option("--target", design->target,
                    "A countdown's date: 2026-12-24, 2026-12-24T18:00:00Z, \"2026-12-24 18:00\" (local time), +3d, +5h")
        ->type_name("DATE");
    command.add_option("--symbol", design->symbol, "The symbol's name; orvel symbols lists them")->type_name("SYMBOL");
    command.add_option("--accent", design->accent, "The accent colour, such as #0A84FF")->type_name("COLOUR");
    command.add_option("--id", design->id, "Its id; one that is stored already is replaced")->type_name("TEXT");
    for (CLI::Option* const option : command.get_options({}))
        if (option != json && option != command.get_help_ptr()) json->excludes(option);
    command.callback([&session, design, json, kind, title] {
        if (!*json && (!*kind || !*title)) throw CLI::RequiredError("--kind and --title, or --json");
        session.operation = [&session, design](const Platform& platform) {
            return tools::add(*design, platform, session.console);
        };
    });
}

void addSet(CLI::App& app, Session& session) {
    const auto change = std::make_shared<Change>();
    CLI::App& command = *app.add_subcommand("set", "Change fields of a design in its place");
    command.add_option("design", change->reference, "An id, the beginning of one, or a position such as @2")
        ->required()
        ->type_name("ID");
    command.add_option("change", change->assignments, "title=…, kind=…, primary=…, item=… (all rows again), …")
        ->type_name("FIELD=VALUE");
    command.add_option("--unset", change->unset, "Make an optional field absent")
        ->check(CLI::IsMember({"primary", "secondary", "items", "progress", "target"}))
        ->type_name("primary|secondary|items|progress|target")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.callback([&session, change] {
        if (change->assignments.empty() && change->unset.empty()) throw CLI::RequiredError("A field=value or --unset");
        session.operation = [&session, change](const Platform& platform) {
            return tools::set(*change, platform, session.console);
        };
    });
}

void addFront(CLI::App& app, Session& session) {
    const auto reference = std::make_shared<std::string>();
    CLI::App& command = *app.add_subcommand("front", "Move a design to the front, where it is shown");
    command.add_option("design", *reference, "An id, the beginning of one, or a position such as @2")
        ->required()
        ->type_name("ID");
    runs(command, session, reference, front);
}

void addRemove(CLI::App& app, Session& session) {
    const auto references = std::make_shared<std::vector<std::string>>();
    CLI::App& command = *app.add_subcommand("remove", "Remove designs");
    command.add_option("designs", *references, "Ids, beginnings of ids, or positions such as @2")
        ->required()
        ->type_name("ID");
    runs(command, session, references, remove);
}

void addList(CLI::App& app, Session& session) {
    const auto form = std::make_shared<ListForm>(ListForm::table);
    CLI::App& command = *app.add_subcommand("list", "List the stored designs");
    auto* const json = command.add_flag_callback(
        "--json", [form] { *form = ListForm::json; }, "As records");
    command
        .add_flag_callback(
            "--ids", [form] { *form = ListForm::ids; }, "Their ids, one a line")
        ->excludes(json);
    runs(command, session, form, list);
}

void addPending(CLI::App& app, Session& session) {
    CLI::App& command = *app.add_subcommand("pending", "Show the design that is kept beside the list, or change it");
    command.require_subcommand(0, 1);
    const auto json = std::make_shared<bool>(false);
    command.add_flag("--json", *json, "As its record, or null");
    CLI::App& setCommand = *command.add_subcommand("set", "Keep this design beside the list");
    const auto file = std::make_shared<std::string>();
    setCommand.add_option("file", *file, "A record as JSON; id and createdAt may be missing")
        ->required()
        ->type_name("FILE|-");
    CLI::App& clearCommand = *command.add_subcommand("clear", "Forget it");
    CLI::App& acceptCommand = *command.add_subcommand("accept", "Store it in front of the others, and print its id");

    command.callback([&session, &setCommand, &clearCommand, &acceptCommand, json, file] {
        session.operation = [&, json, file](const Platform& platform) {
            if (setCommand.parsed()) return tools::setPending(*file, platform, session.console);
            if (clearCommand.parsed()) return clearPending(platform);
            if (acceptCommand.parsed()) return acceptPending(platform, session.console);
            return showPending(*json, platform, session.console);
        };
    });
}

}  // namespace

void addStoreCommands(CLI::App& app, Session& session) {
    addAdd(app, session);
    addSet(app, session);
    addFront(app, session);
    addRemove(app, session);
    addList(app, session);
    addPending(app, session);
}

}  // namespace orvel::tools
