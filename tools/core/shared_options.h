// Options that several commands have.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/timeline.h"
#include "tools/core/session.h"

namespace orvel::tools {

/// Lets the parsed command run `operation(arguments, platform, console)`.
template <class Arguments, class Operation>
void runs(CLI::App& command, Session& session, std::shared_ptr<Arguments> arguments, Operation operation) {
    command.callback([&session, arguments, operation] {
        session.operation = [&session, arguments, operation](const Platform& platform) {
            return operation(*arguments, platform, session.console);
        };
    });
}

/// Shown below the command's options.
void addExample(CLI::App& command, const std::string& line);

/// Fixes the clock.
void addInstantOption(CLI::App& command, Session& session);

/// Fixes the language of what is drawn.
void addLanguageOption(CLI::App& command, Session& session);

/// The card's size, small by default.
void addFamilyOption(CLI::App& command, WidgetFamily& family);

/// Refuses what isn't a number in that range.
CLI::Validator numberWithin(int least, int most);

/// "\"smal\": small or medium is wanted; did you mean \"small\"?"
std::string wrongWord(const std::string& word, const std::vector<std::string>& known);

/// Refuses what isn't one of the words.
CLI::Validator oneWordOf(std::vector<std::string> known);

/// A value named by one word of a table; `words` are those of the table with bars between, in the order to show.
template <class Value>
CLI::Option* addChoice(CLI::App& command, const std::string& name, Value& value,
                       const std::map<std::string, Value>& table, const std::string& words, const std::string& help) {
    const auto choose = [&value, &table, name, words](const std::string& word) {
        const auto found = table.find(word);
        if (found == table.end()) {
            const auto known = CLI::detail::split(words, '|');
            throw CLI::ValidationError(name, wrongWord(word, known));
        }
        value = found->second;
    };
    return command.add_option_function<std::string>(name, choose, help)->type_name(words);
}

}  // namespace orvel::tools
