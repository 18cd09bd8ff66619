// Prepares any text for shaping: takes its paragraphs apart and removes what has no glyph. Private to this folder.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// Takes the first paragraph off the text: up to its first mandatory line break (UAX #14: BK, CR, LF, NL), and the
/// break itself; the whole text when that many bytes have no break.
std::string_view takeParagraph(std::string_view& text, std::size_t mostBytes);

/// The text without line breaks, blanks and control characters at its start.
std::string_view withoutBlankStart(std::string_view text);

/// The text without invisible lines at its start.
std::string_view withoutBlankLinesAtStart(std::string_view text);

/// The text as valid UTF-8, without control characters, and with no more marks on a letter than a line has room for.
std::string displayable(std::string_view text);

}  // namespace orvel
