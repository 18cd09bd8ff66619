// A text as it came, made ready to be shaped: its paragraphs, without what has no glyph. Private to this folder.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// Takes the text up to its first mandatory line break (UAX #14: BK, CR, LF, NL), and the break, from the front; all of
/// it when there is none in that many bytes.
std::string_view takeParagraph(std::string_view& text, std::size_t mostBytes);

/// Without line breaks, blanks and control characters at its start.
std::string_view withoutBlankStart(std::string_view text);

/// Without the lines at its start that show nothing.
std::string_view withoutBlankLinesAtStart(std::string_view text);

/// Valid UTF-8 without control characters, and with no more marks on one letter than a line has room for.
std::string displayable(std::string_view text);

}  // namespace orvel
