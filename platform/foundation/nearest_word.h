// The words that a person who mistyped probably meant.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"

namespace orvel {

/// How many letters have to be inserted, deleted, replaced or swapped with their neighbour, ignoring case.
std::size_t typingMistakes(std::string_view a, std::string_view b);

/// The words that take the fewest edits, if they are few for their length or if `typed` is their beginning: all of the
/// equally near ones, in their order. `words` is a range of strings.
template <class Range>
std::vector<std::string_view> nearestWords(std::string_view typed, const Range& words) {
    constexpr std::size_t longest = 64;
    if (typed.empty() || typed.size() > longest) return {};
    std::vector<std::string_view> nearest;
    std::size_t least = std::max<std::size_t>(typed.size() / 3, 1);
    for (const std::string_view word : words) {
        const bool isCutShort = typed.size() >= 3 && word.starts_with(typed);
        const std::size_t mistakes = isCutShort ? 1 : typingMistakes(typed, word);
        if (mistakes > least || mistakes >= word.size()) continue;
        if (mistakes < least) nearest.clear();
        least = mistakes;
        nearest.push_back(word);
    }
    return nearest;
}

/// "did you mean "metric"?", with up to three equally near words, or nothing.
template <class Range>
std::string didYouMean(std::string_view typed, const Range& words) {
    constexpr std::size_t most = 3;
    std::vector<std::string> quoted;
    for (const std::string_view word : nearestWords(typed, words))
        if (quoted.size() < most) quoted.push_back('"' + std::string(word) + '"');
    return quoted.empty() ? "" : sentence("did you mean {0}?", alternatives(quoted));
}

}  // namespace orvel
