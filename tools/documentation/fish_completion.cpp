#include "platform/foundation/text_list.h"
#include "tools/documentation/command_outline.h"
#include "tools/documentation/documentation.h"

namespace orvel::tools {
namespace {

std::string inQuotes(const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\') result += '\\';
        result += c;
    }
    return result + "'";
}

std::string proposal(const ArgumentOutline& argument) {
    switch (argument.values) {
        case Values::words: return " -f -a " + inQuotes(joined(argument.words, " "));
        case Values::files: return " -F";
        case Values::ids: return " -f -a '(__orvel_ids)'";
        case Values::symbols: return " -f -a '(__orvel_symbols)'";
        case Values::assignments: return " -f -a '(__orvel_assignment)'";
        case Values::none:
        case Values::freeText: break;
    }
    return " -f";
}

// A line that holds at that command, and at that place after it when one is given.
std::string rule(const CommandOutline& command, const std::string& place = {}) {
    const std::string test = "__orvel_at \"" + joined(command.path, " ") + "\"" + (place.empty() ? "" : " " + place);
    return "complete -c orvel -n " + inQuotes(test);
}

std::string optionRule(const CommandOutline& command, const ArgumentOutline& option) {
    std::string line = rule(command);
    for (const auto& name : option.names)
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (option.values != Values::none) line += " -r" + proposal(option);
    return line + " -d " + inQuotes(option.help) + "\n";
}

std::string rules(const CommandOutline& command) {
    std::string text;
    for (const auto& subcommand : command.subcommands)
        text += rule(command, "0") + " -f -a " + subcommand.path.back() + " -d " + inQuotes(subcommand.help) + "\n";
    for (std::size_t place = 0; place < command.positionals.size(); ++place) {
        const auto& positional = command.positionals[place];
        if (positional.values == Values::freeText) continue;
        text +=
            rule(command, std::to_string(place) + (positional.repeats ? " more" : "")) + proposal(positional) + "\n";
    }
    for (const auto& option : command.options) text += optionRule(command, option);
    return text;
}

// The arms that tell subcommands and options with a value from other words.
std::string arms(const std::vector<const CommandOutline*>& commands) {
    std::string subcommands;
    std::string options;
    for (const auto* const command : commands) {
        const std::string path = joined(command->path, " ");
        if (command->path.size() > 1) subcommands += " " + inQuotes(path);
        for (const auto& option : command->options)
            if (option.values != Values::none)
                for (const auto& name : option.names) {
                    std::string words = path;
                    words.append(" ").append(name);
                    options.append(" ").append(inQuotes(words));
                }
    }
    std::string text;
    const std::string indent(16, ' ');
    if (!subcommands.empty())
        text += "            case" + subcommands + "\n" + indent + "set command \"$command $word\"\n" + indent +
                "set place 0\n";
    if (!options.empty()) text += "            case" + options + "\n" + indent + "set isValue yes\n";
    return text;
}

// A field and its value.
std::string assignment(const std::vector<const CommandOutline*>& commands) {
    const auto fields = assignedFields(commands);
    if (fields.empty()) return {};
    std::string values;
    for (const auto& field : fields) {
        const std::string begin = "        case '" + field.name + "=*'\n            printf '" + field.name + "=%s\\n' ";
        if (field.values == Values::symbols) values += begin + "(__orvel_symbols)\n";
        if (field.values == Values::words) values += begin + joined(field.words, " ") + "\n";
    }
    return "\nfunction __orvel_assignment\n    switch (commandline -ct)\n" + values +
           "        case '*=*'\n        case '*'\n            printf '%s\\n'" + assignedNames(fields) +
           "\n    end\nend\n";
}

constexpr const char* walk = R"(# Completions of orvel for fish, made from the command's own description.

function __orvel_ids
    orvel list --ids 2>/dev/null
end

function __orvel_symbols
    orvel symbols 2>/dev/null
end

# Whether the cursor is at that command (all its words) and, when one is given, at that place among the arguments
# after it, or there and further on.
function __orvel_at --argument-names wanted wantedPlace more
    set -l words (commandline -opc)
    set -l command orvel
    set -l place 0
    set -l isValue no
    set -l literal no
    for word in $words[2..-1]
        if test $isValue = yes
            set isValue no
            continue
        else if test $literal = yes
            set place (math $place + 1)
            continue
        end
        switch "$command $word"
)";

constexpr const char* afterWalk = R"(            case '*'
                if test "$word" = --
                    set literal yes
                else if not string match --quiet --regex '^-.' -- "$word"
                    set place (math $place + 1)
                end
        end
    end
    test "$command" = "$wanted"; or return
    test -z "$wantedPlace"; and return
    test $place -eq $wantedPlace; or test -n "$more" -a $place -gt $wantedPlace
end

complete -c orvel -f
)";

}  // namespace

std::string fishCompletion(const CLI::App& app) {
    const CommandOutline command = outline(app);
    const auto commands = everyCommand(command);
    std::string script = walk + arms(commands) + afterWalk + assignment(commands);
    for (const auto* const each : commands) script += rules(*each);
    return script;
}

}  // namespace orvel::tools
