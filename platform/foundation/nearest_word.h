// The word that a person who mistyped probably meant.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace orvel {

/// How many letters have to be inserted, deleted, replaced or swapped with their neighbour, ignoring case.
std::size_t typingMistakes(std::string_view a, std::string_view b);

/// The word that takes the fewest edits, if they are few for its length or if `typed` is its beginning; the first of
/// equally near ones. `words` is a range of strings.
template <class Range>
std::optional<std::string_view> nearestWord(std::string_view typed, const Range& words) {
    constexpr std::size_t longest = 64;
    if (typed.empty() || typed.size() > longest) return std::nullopt;
    std::optional<std::string_view> nearest;
    std::size_t least = std::max<std::size_t>(typed.size() / 3, 1) + 1;
    for (const std::string_view word : words) {
        const bool isCutShort = typed.size() >= 3 && word.starts_with(typed);
        const std::size_t mistakes = isCutShort ? 1 : typingMistakes(typed, word);
        if (mistakes >= least || mistakes >= word.size()) continue;
        least = mistakes;
        nearest = word;
    }
    return nearest;
}

/// "; did you mean "metric"?", or nothing.
template <class Range>
std::string didYouMean(std::string_view typed, const Range& words) {
    const auto nearest = nearestWord(typed, words);
    return nearest ? "; did you mean \"" + std::string(*nearest) + "\"?" : "";
}

}  // namespace orvel
