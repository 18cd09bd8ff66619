#include "platform/foundation/json_fault.h"

#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::json {
namespace {

constexpr auto none = std::string_view::npos;

struct Strings {
    std::size_t unclosed = none;  ///< where the first string begins that probably isn't closed
    std::size_t control = none;   ///< the first control character in a string
};

// Finds the first string that looks unclosed. An unclosed string seems to end at the next one's opening quotation mark,
// so the first string that contains a line break, or isn't followed by JSON's punctuation, is the likely one.
Strings walkStrings(std::string_view json) {
    Strings found;
    std::size_t doubtful = none;
    for (std::size_t start = json.find('"'); start != none;) {
        std::size_t end = start + 1;
        for (; end < json.size() && json[end] != '"'; ++end) {
            if (json[end] == '\\') {
                ++end;
            } else if (static_cast<unsigned char>(json[end]) < 0x20 && found.control == none) {
                found.control = end;
                if (json[end] == '\n' || json[end] == '\r') found.unclosed = doubtful == none ? start : doubtful;
            }
        }
        const std::size_t next = end < json.size() ? json.find_first_not_of(" \t\r\n", end + 1) : none;
        if (next != none && std::string_view(",:]}").find(json[next]) == none && doubtful == none) doubtful = start;
        if (end >= json.size() && found.unclosed == none) found.unclosed = doubtful == none ? start : doubtful;
        start = end < json.size() ? json.find('"', end + 1) : none;
    }
    return found;
}

}  // namespace

std::string faultInWords(simdjson::error_code code) {
    switch (code) {
        case simdjson::TAPE_ERROR:
            return sentence("a comma, colon, bracket or quotation mark is missing here, or too many");
        case simdjson::INCOMPLETE_ARRAY_OR_OBJECT: return sentence("a bracket is never closed");
        case simdjson::TRAILING_CONTENT: return sentence("something follows the end");
        case simdjson::EMPTY: return sentence("there is nothing in it");
        case simdjson::STRING_ERROR:
            return sentence("a string has a backslash before something that it doesn't go with");
        case simdjson::INCORRECT_TYPE:  // of a word that is none of these
        case simdjson::T_ATOM_ERROR:
        case simdjson::F_ATOM_ERROR:
        case simdjson::N_ATOM_ERROR: return sentence("only true, false and null go without quotation marks");
        case simdjson::NUMBER_ERROR: return sentence("this is no number, or one beyond what a double holds");
        case simdjson::DEPTH_ERROR: return sentence("it is nested too deeply");
        default: return simdjson::error_message(code);
    }
}

std::optional<LocatedFault> locatedFault(std::string_view text, simdjson::error_code code) {
    if (code == simdjson::UTF8_ERROR) return LocatedFault{sentence("this isn't UTF-8"), unicode::validLength(text)};
    if (code != simdjson::UNCLOSED_STRING && code != simdjson::UNESCAPED_CHARS) return std::nullopt;
    const Strings strings = walkStrings(text);
    if (strings.unclosed != none)
        return LocatedFault{sentence("the string that begins here isn't closed"), strings.unclosed};
    if (strings.control != none)
        return LocatedFault{sentence("a string has a control character; a tab is \\t, others are \\u00…"),
                            strings.control};
    return std::nullopt;
}

}  // namespace orvel::json
