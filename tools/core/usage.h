// Explains what is wrong with a command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace orvel::tools {

/// One line without a full stop: what is wrong, what was probably meant, and which help to read. `app` is the one that
/// threw the error.
std::string usageProblem(const CLI::App& app, const CLI::ParseError& error);

/// The command of those words below `app`, such as "pending" and "set"; null when there is none.
const CLI::App* findCommand(const CLI::App& app, const std::vector<std::string>& words);

/// Says that there is no such command, and which one was probably meant.
std::string unknownCommand(const CLI::App& app, const std::string& word);

/// The help texts: placeholders instead of names, and nothing about options that go without each other.
std::shared_ptr<CLI::FormatterBase> helpFormatter();

/// The headings above options and commands in help texts, in the person's language.
void nameGroups(CLI::App& app);

}  // namespace orvel::tools
