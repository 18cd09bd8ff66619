#include "tools/documentation/command_outline.h"

#include <algorithm>
#include <CLI/CLI.hpp>

#include "authoring/color_names.h"
#include "authoring/field_texts.h"
#include "platform/foundation/text_list.h"

namespace orvel::tools {
namespace {

// The parser appends what its validators accept, behind a colon.
std::string placeholder(const CLI::Option& option) {
    const std::string typeName = option.get_type_name();
    return typeName.substr(0, typeName.find(':'));
}

// Lower-case words between bars are the words to type; anything else names what to type.
std::vector<std::string> choices(const std::string& placeholder) {
    const auto isTyped = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '|';
    };
    if (placeholder.find('|') == std::string::npos || !std::all_of(placeholder.begin(), placeholder.end(), isTyped))
        return {};
    return CLI::detail::split(placeholder, '|');
}

std::vector<std::string> optionNames(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const auto& name : option.get_snames()) names.push_back("-" + name);
    for (const auto& name : option.get_lnames()) names.push_back("--" + name);
    return names;
}

// The parser keeps them in the order of their addresses, which changes from run to run.
std::vector<std::string> excludedNames(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const CLI::Option* const excluded : option.get_excludes()) {
        const auto more = optionNames(*excluded);
        names.insert(names.end(), more.begin(), more.end());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// What a value can be, as its placeholder says.
FieldOutline valueOf(const std::string& placeholder) {
    if (const auto words = choices(placeholder); !words.empty()) return {{}, Values::words, words};
    if (placeholder == "COLOUR") {
        constexpr auto names = colorNames();
        return {{}, Values::words, {names.begin(), names.end()}};
    }
    if (placeholder.find("FILE") != std::string::npos) return {{}, Values::files};
    if (placeholder == "ID") return {{}, Values::ids};
    if (placeholder == "SYMBOL") return {{}, Values::symbols};
    if (placeholder == "FIELD=VALUE") return {{}, Values::assignments};
    return {{}, Values::freeText};
}

std::vector<FieldOutline> fields() {
    std::vector<FieldOutline> result;
    for (const FieldText& row : fieldTexts()) {
        FieldOutline field =
            valueOf(row.field == WidgetField::kind ? joined(kindNames(), "|") : std::string(row.placeholder));
        field.name = row.name;
        result.push_back(std::move(field));
    }
    return result;
}

ArgumentOutline argument(const CLI::Option& option) {
    ArgumentOutline result;
    result.names = option.nonpositional() ? optionNames(option) : std::vector{option.get_name(true)};
    result.help = option.get_description();
    result.excludes = excludedNames(option);
    result.required = option.get_required();
    if (option.get_items_expected_max() == 0) return result;

    result.placeholder = placeholder(option);
    FieldOutline value = valueOf(result.placeholder);
    result.values = value.values;
    result.words = std::move(value.words);
    if (result.values == Values::assignments) result.fields = fields();
    result.repeats =
        option.get_items_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    return result;
}

// What addExample put below the help.
std::string exampleOf(const CLI::App& app) {
    const std::string footer = app.get_footer();
    constexpr std::string_view introduction = "For example: ";
    return footer.starts_with(introduction) ? footer.substr(introduction.size()) : "";
}

CommandOutline outline(const CLI::App& app, std::vector<std::string> path) {
    path.push_back(app.get_name());
    CommandOutline command;
    command.help = app.get_description();
    command.example = exampleOf(app);
    for (const CLI::Option* const option : app.get_options()) {
        if (option->get_group().empty()) continue;
        (option->nonpositional() ? command.options : command.positionals).push_back(argument(*option));
    }
    for (const CLI::App* const subcommand : app.get_subcommands([](const CLI::App*) { return true; }))
        if (!subcommand->get_group().empty()) command.subcommands.push_back(outline(*subcommand, path));
    command.path = std::move(path);
    return command;
}

// Where a command is wanted, its names are the words to type.
void proposeCommands(CommandOutline& command, const std::vector<std::string>& names) {
    for (ArgumentOutline& positional : command.positionals)
        if (positional.placeholder == "COMMAND") positional.values = Values::words, positional.words = names;
    for (CommandOutline& subcommand : command.subcommands) proposeCommands(subcommand, names);
}

}  // namespace

CommandOutline outline(const CLI::App& app) {
    CommandOutline command = outline(app, {});
    std::vector<std::string> names;
    for (const CommandOutline& subcommand : command.subcommands) names.push_back(subcommand.path.back());
    proposeCommands(command, names);
    return command;
}

std::vector<const CommandOutline*> everyCommand(const CommandOutline& command) {
    std::vector<const CommandOutline*> commands{&command};
    for (const auto& subcommand : command.subcommands) {
        const auto below = everyCommand(subcommand);
        commands.insert(commands.end(), below.begin(), below.end());
    }
    return commands;
}

std::vector<FieldOutline> assignedFields(const std::vector<const CommandOutline*>& commands) {
    for (const CommandOutline* const command : commands)
        for (const ArgumentOutline& positional : command->positionals)
            if (positional.values == Values::assignments) return positional.fields;
    return {};
}

std::string assignedNames(const std::vector<FieldOutline>& fields) {
    std::string names;
    for (const FieldOutline& field : fields) names += " " + field.name + "=";
    return names;
}

}  // namespace orvel::tools
