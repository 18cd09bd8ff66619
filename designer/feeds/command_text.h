// A command as a person writes it: a program and its arguments on a line, which no shell ever reads.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::designer {

/// The words between blanks and line breaks. Quotes and "\" keep those within a word, by the rules of POSIX shells
/// (Shell Command Language, 2.2); all else, such as "$", "*" and "|", stands for itself. Absent when a quote isn't
/// closed.
std::optional<std::vector<std::string>> commandWords(std::string_view text);

/// The text that has these words.
std::string commandText(const std::vector<std::string>& words);

}  // namespace orvel::designer
