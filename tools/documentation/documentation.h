// Texts made from the command's own description: its manual page, and what the shells need to complete it. The same
// description always gives the same text.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace orvel::tools {

/// In the man macros of roff, for section 1; plain ASCII.
std::string manualPage(const CLI::App& app);

/// Scripts for the shells. Each proposes subcommands, options, their choices and files, and takes the designs' ids and
/// the symbols' names from the installed command.
std::string bashCompletion(const CLI::App& app);
std::string zshCompletion(const CLI::App& app);
std::string fishCompletion(const CLI::App& app);

}  // namespace orvel::tools
