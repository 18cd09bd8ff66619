// Options that several commands have.
#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <string>

#include "platform/host/timeline.h"
#include "tools/session.h"

namespace orvel::tools {

/// Fixes the clock.
void addInstantOption(CLI::App& command, Session& session);

/// The card's size, small by default.
void addFamilyOption(CLI::App& command, WidgetFamily& family);

/// Refuses what isn't a number in that range.
CLI::Validator numberWithin(int least, int most);

/// A value named by one word of a table; `words` are those of the table with bars between, in the order to show.
template <class Value>
CLI::Option* addChoice(CLI::App& command, const std::string& name, Value& value,
                       const std::map<std::string, Value>& table, const std::string& words, const std::string& help) {
    const auto choose = [&value, &table, name, words](const std::string& word) {
        const auto found = table.find(word);
        if (found == table.end()) throw CLI::ValidationError(name, word + " is none of " + words);
        value = found->second;
    };
    return command.add_option_function<std::string>(name, choose, help)->type_name(words);
}

}  // namespace orvel::tools
