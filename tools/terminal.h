// Texts of designs on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace orvel::tools {

/// On one line and harmless: every control character becomes a blank.
std::string printable(std::string_view text);

/// Filled with blanks up to that many columns.
std::string padded(std::string text, std::size_t columns);

}  // namespace orvel::tools
