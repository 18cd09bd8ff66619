#include "platform/foundation/text_list.h"
#include "tools/documentation/command_outline.h"
#include "tools/documentation/documentation.h"

namespace orvel::tools {
namespace {

// Words of the command line, as one pattern of a case.
std::string pattern(const std::string& words) {
    return '"' + words + '"';
}

// One arm of a case; none without a pattern.
std::string arm(const std::vector<std::string>& patterns, const std::string& action, const std::string& indent) {
    if (patterns.empty()) return {};
    return indent + joined(patterns, " | ") + ") " + action + " ;;\n";
}

std::string proposal(const ArgumentOutline& argument) {
    switch (argument.values) {
        case Values::words: return "__orvel_propose " + joined(argument.words, " ");
        case Values::files: return "__orvel_propose_files";
        case Values::ids: return "__orvel_propose_ids";
        case Values::symbols: return "__orvel_propose_symbols";
        case Values::assignments: return "__orvel_propose_assignment";
        case Values::none:
        case Values::freeText: break;
    }
    return ":";
}

std::string subcommandArm(const std::vector<const CommandOutline*>& commands) {
    std::vector<std::string> patterns;
    for (const auto* const command : commands)
        if (command->path.size() > 1) patterns.push_back(pattern(joined(command->path, " ")));
    return arm(patterns, "command+=\" $word\" place=0", "            ");
}

std::vector<std::string> patterns(const CommandOutline& command, const ArgumentOutline& option) {
    std::vector<std::string> result;
    for (const auto& name : option.names) result.push_back(pattern(joined(command.path, " ") + " " + name));
    return result;
}

std::string valuedOptionArm(const std::vector<const CommandOutline*>& commands) {
    std::vector<std::string> all;
    for (const auto* const command : commands) {
        for (const auto& option : command->options) {
            if (option.values == Values::none) continue;
            const auto more = patterns(*command, option);
            all.insert(all.end(), more.begin(), more.end());
        }
    }
    return arm(all, "option=$word", "            ");
}

std::string valueArms(const std::vector<const CommandOutline*>& commands) {
    std::string arms;
    for (const auto* const command : commands)
        for (const auto& option : command->options)
            if (option.values != Values::none && option.values != Values::freeText)
                arms += arm(patterns(*command, option), proposal(option), "            ");
    return arms;
}

std::string optionArms(const std::vector<const CommandOutline*>& commands) {
    std::string arms;
    for (const auto* const command : commands) {
        std::vector<std::string> names;
        for (const auto& option : command->options) names.insert(names.end(), option.names.begin(), option.names.end());
        if (names.empty()) continue;
        arms += arm({pattern(joined(command->path, " "))}, "__orvel_propose " + joined(names, " "), "        ");
    }
    return arms;
}

// What can be typed at each place after a command: its subcommands at the first, or its positionals.
std::string placeArms(const std::vector<const CommandOutline*>& commands) {
    std::string arms;
    for (const auto* const command : commands) {
        const std::string path = joined(command->path, " ");
        std::vector<std::string> names;
        for (const auto& subcommand : command->subcommands) names.push_back(subcommand.path.back());
        if (!names.empty()) arms += arm({pattern(path + "@0")}, "__orvel_propose " + joined(names, " "), "        ");
        for (std::size_t place = 0; place < command->positionals.size(); ++place) {
            const auto& positional = command->positionals[place];
            const std::string where =
                positional.repeats ? pattern(path + "@") + "*" : pattern(path + "@" + std::to_string(place));
            arms += arm({where}, proposal(positional), "        ");
        }
    }
    return arms;
}

constexpr const char* helpers = R"(# Completions of orvel for bash, made from the command's own description.

# Proposes those words that begin as the current one does, each as it must be typed.
__orvel_propose() {
    local word quoted
    for word in "$@"; do
        printf -v quoted %q "$word"
        if [[ $word == "$current"* || $quoted == "$current"* ]]; then COMPREPLY+=("$quoted"); fi
    done
}

__orvel_propose_files() {
    compopt -o default 2> /dev/null
}

# An id may be any text, so none is ever evaluated.
__orvel_propose_ids() {
    local -a ids
    mapfile -t ids < <(orvel list --ids 2> /dev/null)
    __orvel_propose "${ids[@]}"
}

__orvel_propose_symbols() {
    local -a symbols
    mapfile -t symbols < <(orvel symbols 2> /dev/null)
    __orvel_propose "${symbols[@]/#/${1-}}"
}

# Words behind a prefix, which may be empty.
__orvel_propose_behind() {
    local -a words=("${@:2}")
    __orvel_propose "${words[@]/#/$1}"
}
)";

// A field and its value, which bash takes for three words: "symbol", "=", "flag".
constexpr const char* beforeFields = R"(
__orvel_propose_assignment() {
    local field prefix=
    if [[ $current == = ]]; then
        field=${COMP_WORDS[COMP_CWORD - 1]} current=
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == = ]]; then
        field=${COMP_WORDS[COMP_CWORD - 2]}
    elif [[ $current == *=* ]]; then
        field=${current%%=*} prefix=$field=
    else
        compopt -o nospace 2> /dev/null
)";

constexpr const char* beforeFieldValues = R"(        return
    fi
    case $field in
)";

std::string assignment(const std::vector<const CommandOutline*>& commands) {
    const auto fields = assignedFields(commands);
    if (fields.empty()) return {};
    std::string values;
    for (const auto& field : fields) {
        const std::string words = joined(field.words, " ");
        if (field.values == Values::words)
            values += arm({field.name}, "__orvel_propose_behind \"$prefix\" " + words, "        ");
        if (field.values == Values::symbols)
            values += arm({field.name}, "__orvel_propose_symbols \"$prefix\"", "        ");
    }
    return beforeFields + ("        __orvel_propose" + assignedNames(fields) + "\n") + beforeFieldValues + values +
           "    esac\n}\n";
}

constexpr const char* walk = R"(
_orvel() {
    local current=${COMP_WORDS[COMP_CWORD]} command=orvel place=0 option= literal= word i
    COMPREPLY=()
    if [[ ${COMP_WORDS[COMP_CWORD - 1]} == *[\<\>] ]]; then
        __orvel_propose_files
        return
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        # Bash takes "--name=value" for three words.
        if [[ $word == = ]]; then
            continue
        elif [[ $option ]]; then
            option=
            continue
        elif [[ $literal ]]; then
            place=$((place + 1))
            continue
        fi
        case "$command $word" in
)";

constexpr const char* afterWalk = R"(            *)
                if [[ $word == -- ]]; then
                    literal=yes
                elif [[ $word != -?* ]]; then
                    place=$((place + 1))
                fi
                ;;
        esac
    done

    if [[ $option ]]; then
        if [[ $current == = ]]; then current=; fi
        case "$command $option" in
)";

constexpr const char* afterValues = R"(        esac
        return
    fi
    if [[ $current == -* && ! $literal ]]; then
        __orvel_propose_options
        return
    fi
    case "$command@$place" in
)";

constexpr const char* ending = R"(        *) if [[ ! $current ]]; then __orvel_propose_options; fi ;;
    esac
}

complete -F _orvel orvel
)";

}  // namespace

std::string bashCompletion(const CLI::App& app) {
    const CommandOutline command = outline(app);
    const auto commands = everyCommand(command);
    return helpers + assignment(commands) +
           ("\n__orvel_propose_options() {\n    case $command in\n" + optionArms(commands) + "    esac\n}\n") + walk +
           subcommandArm(commands) + valuedOptionArm(commands) + afterWalk + valueArms(commands) + afterValues +
           placeArms(commands) + ending;
}

}  // namespace orvel::tools
