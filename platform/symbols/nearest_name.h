// Which of the known names a person meant.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

/// The known name that takes the fewest changes, if they are few for its length; the first of equally near ones. A
/// change is an inserted, deleted or replaced letter; a shortened word counts as one change, an additional word as
/// three. The words of known names are separated by dots; the given name may have any separators and letter cases.
std::optional<std::string> nearestName(std::string_view name, const std::vector<std::string>& known);

}  // namespace orvel
