// Texts made from the command's own description: its manual page, and what the shells need to complete it; and manual
// pages made from documents. The same input always gives the same text.
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace orvel::tools {

/// In the man macros of roff, for section 1; plain ASCII.
std::string manualPage(const CLI::App& app);

struct PageTitle {
    std::string name;
    int section;
    std::string version;
    std::string summary;  ///< what stands beside the name
};

/// A document as a manual page of file formats. It understands the Markdown that the documents here use: headings,
/// paragraphs, lists, tables, blocks of code, links, and words in backquotes or between stars.
std::string manualPage(const PageTitle& title, std::string_view markdown);

/// Scripts for the shells. Each proposes subcommands, options, their choices and files, and takes the designs' ids and
/// the symbols' names from the installed command.
std::string bashCompletion(const CLI::App& app);
std::string zshCompletion(const CLI::App& app);
std::string fishCompletion(const CLI::App& app);

}  // namespace orvel::tools
