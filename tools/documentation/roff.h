// Pieces of a manual page in the man macros of roff, in plain ASCII.
#pragma once

#include <string>
#include <string_view>

namespace orvel::tools::roff {

/// As it stands on the page: what roff would take for a request, or typeset as another character, is written by name.
std::string escaped(std::string_view text);
std::string bold(std::string_view text);
std::string italic(std::string_view text);

/// The page's head and its section NAME. There is no date, which would differ from build to build.
std::string title(std::string_view name, int manualSection, std::string_view version, std::string_view manual,
                  std::string_view summary);
std::string section(std::string_view name);
std::string subsection(std::string_view name);

/// A paragraph of text that is escaped already.
std::string paragraph(const std::string& text);
/// A heading, and below it, further in, what it means; both are escaped already.
std::string entry(const std::string& heading, const std::string& text);
/// Lines as they are, further in.
std::string verbatim(std::string_view lines);

/// The page without marks of paragraphs directly after headings, where they have no effect.
std::string withoutEmptyParagraphs(std::string_view page);

}  // namespace orvel::tools::roff
