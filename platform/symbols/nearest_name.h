// Which of the known names a person meant.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

/// The known name with the fewest changes, if there are few for its length; of equally near ones the first. A change is
/// a letter put in, left out or replaced; a word cut short counts as one change, a word too many as three. The words of
/// known names are separated by dots; any separators and letter cases will do in the given one.
std::optional<std::string> nearestName(std::string_view name, const std::vector<std::string>& known);

}  // namespace orvel
