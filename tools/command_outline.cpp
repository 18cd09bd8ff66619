#include "tools/command_outline.h"

#include <algorithm>
#include <CLI/CLI.hpp>

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

ArgumentOutline argument(const CLI::Option& option) {
    using Values = ArgumentOutline::Values;
    ArgumentOutline result;
    result.names = option.nonpositional() ? optionNames(option) : std::vector{option.get_name(true)};
    result.help = option.get_description();
    result.excludes = excludedNames(option);
    result.required = option.get_required();
    if (option.get_items_expected_max() == 0) return result;

    result.placeholder = placeholder(option);
    result.words = choices(result.placeholder);
    result.values = !result.words.empty()                                  ? Values::words
                    : result.placeholder.find("FILE") != std::string::npos ? Values::files
                    : result.placeholder == "ID"                           ? Values::ids
                    : result.placeholder == "SYMBOL"                       ? Values::symbols
                    : result.placeholder == "FIELD=VALUE"                  ? Values::symbols
                                                                           : Values::freeText;
    if (result.placeholder == "FIELD=VALUE") result.prefix = "symbol=";
    result.repeats =
        option.get_items_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    return result;
}

CommandOutline outline(const CLI::App& app, std::vector<std::string> path) {
    path.push_back(app.get_name());
    CommandOutline command;
    command.help = app.get_description();
    for (const CLI::Option* const option : app.get_options()) {
        if (option->get_group().empty()) continue;
        (option->nonpositional() ? command.options : command.positionals).push_back(argument(*option));
    }
    for (const CLI::App* const subcommand : app.get_subcommands([](const CLI::App*) { return true; }))
        if (!subcommand->get_group().empty()) command.subcommands.push_back(outline(*subcommand, path));
    command.path = std::move(path);
    return command;
}

}  // namespace

CommandOutline outline(const CLI::App& app) {
    return outline(app, {});
}

std::vector<const CommandOutline*> everyCommand(const CommandOutline& command) {
    std::vector<const CommandOutline*> commands{&command};
    for (const auto& subcommand : command.subcommands) {
        const auto below = everyCommand(subcommand);
        commands.insert(commands.end(), below.begin(), below.end());
    }
    return commands;
}

std::string joined(const std::vector<std::string>& texts, const std::string& separator) {
    std::string result;
    for (const auto& text : texts) result += (&text == &texts.front() ? "" : separator) + text;
    return result;
}

}  // namespace orvel::tools
