// Joins words into one text.
#pragma once

#include <string>
#include <string_view>

#include "platform/language/sentence.h"

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

/// The texts as a person enumerates them: each pair joined by a sentence for the middle of a list, or for its end.
template <class Range>
std::string enumerated(const Range& texts, std::string_view middle, std::string_view end) {
    std::string result;
    std::size_t left = std::size(texts);
    for (const auto& text : texts) {
        result = result.empty() ? std::string(text) : sentence(left > 1 ? middle : end, result, text);
        --left;
    }
    return result;
}

/// "a, b or c", as the person's language has it.
template <class Range>
std::string alternatives(const Range& texts) {
    return enumerated(texts, toTranslate("{0}, {1}"), toTranslate("{0} or {1}"));
}

/// "a, b and c".
template <class Range>
std::string conjunction(const Range& texts) {
    return enumerated(texts, toTranslate("{0}, {1}"), toTranslate("{0} and {1}"));
}

}  // namespace orvel
