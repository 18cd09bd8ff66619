#include "tools/store/commands.h"

#include <algorithm>
#include <memory>

#include "model/widget_fields.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"
#include "tools/core/shared_options.h"
#include "tools/store/check.h"
#include "tools/store/edit.h"
#include "tools/store/list.h"
#include "tools/store/operations.h"
#include "tools/store/pending.h"
#include "tools/store/restore.h"

namespace orvel::tools {
namespace {

const char* const oneDesign = toTranslate("An id, the beginning of one, or a position such as @2");

template <class Names>
CLI::Validator oneOf(const Names& names) {
    return oneWordOf({names.begin(), names.end()});
}

bool isRequired(WidgetField field) {
    return withWidgetField<bool>([&](const auto& row) { return row.field == field; },
                                 [](const auto& row) { return row.whenLeftOut == WhenLeftOut::refuse; }, false);
}

void addWaitOption(CLI::App& command, Session& session) {
    command
        .add_option("--wait", session.console.lockWait,
                    sentence("For how long to wait for another process (default: 30)"))
        ->check(numberWithin(0, 86'400))
        ->type_name("SECONDS");
}

// " (metric or note)": the kinds that show the field, unless all do or none does.
std::string kindsThatShow(WidgetField field) {
    std::vector<std::string_view> kinds;
    for (const WidgetKind kind : allWidgetKinds)
        if (shows(kind, field)) kinds.push_back(rawValue(kind));
    const bool isForSome = !kinds.empty() && kinds.size() < allWidgetKinds.size();
    return isForSome ? sentence(" ({0})", alternatives(kinds)) : "";
}

// One for each field that a person may give so.
std::vector<CLI::Option*> addFieldOptions(CLI::App& command, const std::shared_ptr<Addition>& addition) {
    std::vector<CLI::Option*> options;
    for (const FieldText& row : fieldTexts()) {
        if (row.givenBy != FieldText::GivenBy::optionAndAssignment) continue;
        const auto keep = [addition, &row](const std::vector<std::string>& values) {
            for (const std::string& value : values) addition->fields.push_back({std::string(row.name), value});
        };
        const std::string help = sentence(row.help) + kindsThatShow(row.field) +
                                 (isRequired(row.field) ? sentence(" (required, except with --json)") : "");
        CLI::Option* const option =
            command.add_option_function<std::vector<std::string>>("--" + std::string(row.name), keep, help);
        option->expected(1)->type_name(std::string(row.placeholder));
        if (row.field == WidgetField::items) option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        if (row.field == WidgetField::kind) option->check(oneOf(kindNames()))->type_name(joined(kindNames(), "|"));
        options.push_back(option);
    }
    return options;
}

// What a new design must have, as options: "--kind", "--title".
std::vector<std::string> requiredOptions() {
    std::vector<std::string> names;
    for (const FieldText& row : fieldTexts())
        if (isRequired(row.field)) names.push_back("--" + std::string(row.name));
    return names;
}

void addAdd(CLI::App& app, Session& session) {
    const auto addition = std::make_shared<Addition>();
    CLI::App& command = *app.add_subcommand("add", sentence("Store a design in front of the others, and print its id"));
    auto* const json =
        command.add_option("--json", addition->json, sentence("A record as JSON; id and createdAt may be missing"))
            ->type_name("FILE|-");
    for (CLI::Option* const option : addFieldOptions(command, addition)) json->excludes(option);
    command
        .add_flag("--keep-place", addition->keepPlace,
                  sentence("With --id: keep what is stored by that id, where it is, and change only what is given"))
        ->needs(command.get_option("--id"));
    command.add_flag("--start-over", addition->startOver,
                     sentence("When the stored list doesn't load, keep it beside and begin a new one"));
    addWaitOption(command, session);
    command.callback([&session, &command, addition, json] {
        const auto isGiven = [&](const std::string& name) { return command.count(name) > 0; };
        const auto required = requiredOptions();
        if (!*json && !addition->keepPlace && !std::all_of(required.begin(), required.end(), isGiven))
            throw CLI::ValidationError(sentence("a design needs {0}, or --json", conjunction(required)));
        session.operation = [&session, addition](const Platform& platform) {
            return tools::add(*addition, platform, session.console);
        };
    });
    addExample(command, "orvel add --kind metric --title \"Active users\" --primary 42 --symbol person.2.fill");
}

void addSet(CLI::App& app, Session& session) {
    const auto change = std::make_shared<FieldChange>();
    CLI::App& command = *app.add_subcommand("set", sentence("Change fields of a design in its place"));
    command.add_option("design", change->reference, sentence(oneDesign))->required()->type_name("ID");
    command
        .add_option("change", change->assignments,
                    sentence("title=…, kind=…, primary=…, progress=38%, item=… for each row, or items=a,b for all, …"))
        ->type_name("FIELD=VALUE");
    const auto optional = namesOfOptionalFields();
    command.add_option("--unset", change->unset, sentence("Make an optional field absent"))
        ->check(oneOf(optional))
        ->type_name(joined(optional, "|"))
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_flag("--create", change->create,
                     sentence("Take ID as a whole id, and add the design when there is none"));
    addWaitOption(command, session);
    command.callback([&session, change] {
        if (change->assignments.empty() && change->unset.empty())
            throw CLI::ValidationError(sentence("a change is missing: FIELD=VALUE, or --unset"));
        session.operation = [&session, change](const Platform& platform) {
            return tools::set(*change, platform, session.console);
        };
    });
    addExample(command, "orvel set @1 primary=43 title=\"Active now\"");
}

void addEdit(CLI::App& app, Session& session) {
    const auto reference = std::make_shared<std::optional<std::string>>();
    CLI::App& command = *app.add_subcommand(
        "edit", sentence("Open a design's record in $VISUAL or $EDITOR, and store what comes back"));
    command
        .add_option("design", *reference,
                    sentence("An id, the beginning of one, or a position such as @2 (default: the first)"))
        ->type_name("ID");
    addWaitOption(command, session);
    runs(command, session, reference, edit);
    addExample(command, "orvel edit @2");
}

void addFront(CLI::App& app, Session& session) {
    const auto reference = std::make_shared<std::string>();
    CLI::App& command = *app.add_subcommand("front", sentence("Move a design to the front, where it is shown"));
    command.add_option("design", *reference, sentence(oneDesign))->required()->type_name("ID");
    addWaitOption(command, session);
    runs(command, session, reference, front);
    addExample(command, "orvel front @3");
}

void addRemove(CLI::App& app, Session& session) {
    const auto references = std::make_shared<std::vector<std::string>>();
    CLI::App& command = *app.add_subcommand("remove", sentence("Remove designs"));
    command.add_option("designs", *references, sentence("Ids, beginnings of ids, or positions such as @2"))
        ->required()
        ->type_name("ID");
    addWaitOption(command, session);
    runs(command, session, references, remove);
    addExample(command, "orvel remove @2 @3");
}

void addUndo(CLI::App& app, Session& session) {
    CLI::App& command = *app.add_subcommand(
        "undo", sentence("Take back the last change by add, set, edit, front, remove or pending accept"));
    addWaitOption(command, session);
    command.callback([&session] {
        session.operation = [&session](const Platform& platform) { return tools::undo(platform, session.console); };
    });
}

void addRestore(CLI::App& app, Session& session) {
    const auto choice = std::make_shared<std::optional<std::string>>();
    CLI::App& command =
        *app.add_subcommand("restore", sentence("List the files that were kept beside the store, or bring one back"));
    command.add_option("choice", *choice, sentence("A file of that list, or its number there"))->type_name("FILE|N");
    addWaitOption(command, session);
    runs(command, session, choice, restore);
    addExample(command, "orvel restore 1");
}

void addList(CLI::App& app, Session& session) {
    const auto form = std::make_shared<ListForm>(ListForm::table);
    CLI::App& command = *app.add_subcommand("list", sentence("List the stored designs"));
    auto* const json = command.add_flag_callback(
        "--json", [form] { *form = ListForm::json; }, sentence("As records"));
    command
        .add_flag_callback(
            "--ids", [form] { *form = ListForm::ids; }, sentence("Their ids, one a line"))
        ->excludes(json);
    runs(command, session, form, list);
}

void addPending(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("pending", sentence("Show the design that is kept beside the list, or change it"));
    command.require_subcommand(0, 1);
    const auto json = std::make_shared<bool>(false);
    command.add_flag("--json", *json, sentence("As its record, or null"));
    CLI::App& setCommand = *command.add_subcommand("set", sentence("Keep this design beside the list"));
    const auto file = std::make_shared<std::string>();
    setCommand.add_option("file", *file, sentence("A record as JSON; id and createdAt may be missing"))
        ->required()
        ->type_name("FILE|-");
    CLI::App& clearCommand = *command.add_subcommand("clear", sentence("Forget it"));
    CLI::App& acceptCommand =
        *command.add_subcommand("accept", sentence("Store it in front of the others, and print its id"));

    for (CLI::App* const changing : {&setCommand, &clearCommand, &acceptCommand}) addWaitOption(*changing, session);
    command.callback([&session, &setCommand, &clearCommand, &acceptCommand, json, file] {
        session.operation = [&, json, file](const Platform& platform) {
            if (setCommand.parsed()) return tools::setPending(*file, platform, session.console);
            if (clearCommand.parsed()) return clearPending(platform, session.console);
            if (acceptCommand.parsed()) return acceptPending(platform, session.console);
            return showPending(*json, platform, session.console);
        };
    });
}

void addCheck(CLI::App& app, Session& session) {
    const auto file = std::make_shared<std::optional<std::string>>();
    CLI::App& command =
        *app.add_subcommand("check", sentence("Check whether the designs are valid, and show as meant"));
    command.add_option("file", *file, sentence("A list of designs; - is standard input (default: the store)"))
        ->type_name("FILE|-");
    runs(command, session, file, check);
    addExample(command, "orvel check designs.json");
}

}  // namespace

void addStoreCommands(CLI::App& app, Session& session) {
    addAdd(app, session);
    addSet(app, session);
    addEdit(app, session);
    addFront(app, session);
    addRemove(app, session);
    addUndo(app, session);
    addRestore(app, session);
    addList(app, session);
    addPending(app, session);
    addCheck(app, session);
}

}  // namespace orvel::tools
