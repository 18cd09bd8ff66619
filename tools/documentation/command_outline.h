// The command's words and options as plain values, read from the description that parses them. The manual page and the
// shells' completions are made from these.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace orvel::tools {

/// What a shell can propose for a value.
enum class Values { none, freeText, words, files, ids, symbols, assignments };

/// What stands before the "=" of an assignment, and what can stand after it.
struct FieldOutline {
    std::string name;
    Values values = Values::freeText;
    std::vector<std::string> words = {};  ///< the choices, when `values` says words
};

struct ArgumentOutline {
    std::vector<std::string> names;     ///< such as "-o" and "--output"; of a positional its one name
    std::string help;                   ///< one sentence
    std::string placeholder;            ///< such as "FILE|-"; empty for a flag
    Values values = Values::none;       ///< none only for a flag
    std::vector<std::string> words;     ///< the choices, when `values` says words
    std::vector<FieldOutline> fields;   ///< when `values` says assignments
    std::vector<std::string> excludes;  ///< names of options that can't stand beside it
    bool required = false;
    bool repeats = false;
};

struct CommandOutline {
    std::vector<std::string> path;  ///< such as "orvel", "pending", "set"
    std::string help;
    std::string example;  ///< a line that calls it; empty when there is none
    std::vector<ArgumentOutline> options;
    std::vector<ArgumentOutline> positionals;
    std::vector<CommandOutline> subcommands;
};

/// What is hidden from the help is left out.
CommandOutline outline(const CLI::App& app);

/// The command and all below it, each before its subcommands. The pointers last as long as the outline.
std::vector<const CommandOutline*> everyCommand(const CommandOutline& command);

/// What can be assigned after the first command that takes assignments; empty if none does.
std::vector<FieldOutline> assignedFields(const std::vector<const CommandOutline*>& commands);

/// Their names as they are typed, each after a blank: " title= primary=".
std::string assignedNames(const std::vector<FieldOutline>& fields);

}  // namespace orvel::tools
