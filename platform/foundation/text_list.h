// Joins words into one text.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// "a|b|c"; `texts` is a range of strings.
template <class Range>
std::string joined(const Range& texts, std::string_view separator) {
    std::string result;
    bool isFirst = true;
    for (const auto& text : texts) {
        if (!isFirst) result += separator;
        result += text;
        isFirst = false;
    }
    return result;
}

/// "a, b or c".
template <class Range>
std::string alternatives(const Range& texts) {
    std::string result;
    std::size_t left = std::size(texts);
    for (const auto& text : texts) {
        result += text;
        --left;
        result += left > 1 ? ", " : left == 1 ? " or " : "";
    }
    return result;
}

}  // namespace orvel
