// Symbols by the words that people use for them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/symbols/name_table.h"

namespace orvel {

/// See Symbols::search. `synonyms` has names, or the beginnings of names, separated by spaces, the likeliest first.
std::vector<std::string> searchNames(std::string_view words, const std::vector<std::string>& known,
                                     const NameTable& synonyms);

/// The likeliest known name for a text that is a synonym, or one with the ending of a name: "user.fill" is
/// "person.fill".
std::optional<std::string> synonymousName(std::string_view text, const std::vector<std::string>& known,
                                          const NameTable& synonyms);

}  // namespace orvel
