#include "platform/foundation/text_list.h"
#include "tools/documentation/command_outline.h"
#include "tools/documentation/documentation.h"

namespace orvel::tools {
namespace {

std::string inQuotes(const std::string& text) {
    std::string result = "'";
    for (const char c : text) result += c == '\'' ? "'\\''" : std::string(1, c);
    return result + "'";
}

// A part of what _arguments and _describe read, in which those characters separate.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\' || c == '[' || c == ']' || c == ':') result += '\\';
        result += c;
    }
    return result;
}

std::string functionName(const CommandOutline& command) {
    return "_" + joined(command.path, "_");
}

std::string action(const ArgumentOutline& argument) {
    switch (argument.values) {
        case Values::words: return "(" + joined(argument.words, " ") + ")";
        case Values::files: return "_files";
        case Values::ids: return "__orvel_ids";
        case Values::symbols: return "__orvel_symbols";
        case Values::assignments: return "__orvel_assignment";
        case Values::none:
        case Values::freeText: break;
    }
    return " ";
}

// One for each of the option's names; each excludes the others, and what the option excludes.
std::string optionSpecs(const ArgumentOutline& option) {
    std::vector<std::string> excluded = option.excludes;
    if (!option.repeats) excluded.insert(excluded.end(), option.names.begin(), option.names.end());
    std::string specs;
    for (const auto& name : option.names) {
        std::string spec = excluded.empty() ? "" : "(" + joined(excluded, " ") + ")";
        if (option.repeats) spec += "*";
        spec += name;
        if (option.values != Values::none) spec += name.starts_with("--") ? "=" : "+";
        spec += "[" + escaped(option.help) + "]";
        if (option.values != Values::none) spec += ":" + escaped(option.placeholder) + ":" + action(option);
        specs += " \\\n        " + inQuotes(spec);
    }
    return specs;
}

std::string positionalSpec(const ArgumentOutline& positional) {
    const std::string place = positional.repeats ? "*" : positional.required ? "" : ":";
    return " \\\n        " + inQuotes(place + ":" + escaped(positional.names.front()) + ":" + action(positional));
}

std::string arguments(const CommandOutline& command) {
    std::string text = "    _arguments -C -S :";
    for (const auto& option : command.options) text += optionSpecs(option);
    for (const auto& positional : command.positionals) text += positionalSpec(positional);
    if (!command.subcommands.empty())
        text += " \\\n        '1: :" + functionName(command) + "__commands' \\\n        '*:: :->rest'";
    return text;
}

std::string subcommandList(const CommandOutline& command) {
    std::string text = functionName(command) + "__commands() {\n    local -a commands=(\n";
    for (const auto& subcommand : command.subcommands)
        text += "        " + inQuotes(escaped(subcommand.path.back()) + ":" + escaped(subcommand.help)) + "\n";
    return text + "    )\n    _describe -t commands command commands\n}\n\n";
}

std::string function(const CommandOutline& command) {
    std::string text = functionName(command) + "() {\n";
    if (command.subcommands.empty()) return text + arguments(command) + "\n}\n\n";
    text +=
        "    local curcontext=$curcontext state line\n    typeset -A opt_args\n" + arguments(command) + " && return\n";
    text += "    if [[ $state == rest ]]; then\n        case $words[1] in\n";
    for (const auto& subcommand : command.subcommands)
        text += "            " + subcommand.path.back() + ") " + functionName(subcommand) + " ;;\n";
    return subcommandList(command) + text + "        esac\n    fi\n}\n\n";
}

// A field and its value.
std::string assignment(const std::vector<const CommandOutline*>& commands) {
    const auto fields = assignedFields(commands);
    if (fields.empty()) return {};
    std::string values;
    for (const auto& field : fields) {
        const std::string begin = "    compset -P " + field.name + "= && { ";
        if (field.values == Values::symbols) values += begin + "__orvel_symbols; return }\n";
        if (field.values == Values::words)
            values += begin + "_wanted values expl value compadd -- " + joined(field.words, " ") + "; return }\n";
    }
    return "__orvel_assignment() {\n" + values + "    compset -P '*=' && return 1\n" +
           "    _wanted fields expl field compadd -S '' --" + assignedNames(fields) + "\n}\n\n";
}

}  // namespace

std::string zshCompletion(const CLI::App& app) {
    const CommandOutline command = outline(app);
    std::string script =
        "#compdef orvel\n"
        "# Completions of orvel for zsh, made from the command's own description.\n\n"
        "__orvel_ids() {\n"
        "    local -a ids=(${(f)\"$(_call_program ids orvel list --ids 2> /dev/null)\"})\n"
        "    _wanted ids expl design compadd -a ids\n"
        "}\n\n"
        "__orvel_symbols() {\n"
        "    local -a symbols=(${(f)\"$(_call_program symbols orvel symbols 2> /dev/null)\"})\n"
        "    _wanted symbols expl symbol compadd -a symbols\n"
        "}\n\n";
    const auto commands = everyCommand(command);
    script += assignment(commands);
    for (auto each = commands.rbegin(); each != commands.rend(); ++each) script += function(**each);
    return script +
           "if [[ $funcstack[1] == _orvel ]]; then\n"
           "    _orvel \"$@\"\n"
           "else\n"
           "    compdef _orvel orvel\n"
           "fi\n";
}

}  // namespace orvel::tools
