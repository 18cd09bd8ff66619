// What a symbol's name can be, and its endings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::symbol_name {

/// Whether it may name a symbol: words of lower-case letters and digits, separated by dots. The logos of companies,
/// which the fonts also contain, don't count as symbols.
bool isValid(std::string_view text);

/// The name without that ending; absent when the name doesn't have it.
std::optional<std::string_view> without(std::string_view ending, std::string_view name);

/// A typed name in lower case, with dots between its words.
std::string spelled(std::string_view text);

/// The words between the dots; none is empty.
std::vector<std::string_view> words(std::string_view name);

std::string replaced(std::string_view text, char from, char to);

}  // namespace orvel::symbol_name
