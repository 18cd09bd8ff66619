#include "platform/render/boundaries.h"

#include <hb.h>

#include <algorithm>
#include <string>

#include "platform/render/word_dictionary.h"

namespace orvel {
namespace {

constexpr char32_t softHyphen = U'\u00AD';
constexpr char32_t joiner = U'\u200D';

bool isAscii(char32_t c) {
    return c > 0x20 && c < 0x7F;
}

bool isOneOf(char32_t c, std::u32string_view set) {
    return set.find(c) != set.npos;
}

bool isWide(char32_t c) {
    return g_unichar_iswide(c);
}

// Between ASCII characters, UAX #14 allows breaks where a class of numbers or punctuation ends, also inside "C++", "!="
// and "v.2". Here, lines end there only after a hyphen within a word, after a slash or a question mark, and before an
// opening bracket.
bool staysAmongAscii(std::u32string_view text, std::size_t at) {
    const char32_t before = text[at - 1];
    const char32_t after = text[at];
    if (isOneOf(after, U"([{<")) return g_ascii_isalnum(static_cast<char>(before)) || isOneOf(before, U"([{<$'/@\\^_`");
    if (before == U'-') return !g_ascii_isalpha(static_cast<char>(after)) || at < 2 || !g_unichar_isalnum(text[at - 2]);
    return !isOneOf(before, U"/?") || !g_ascii_isalnum(static_cast<char>(after));
}

// Rules of Unicode 15.1 and 16 (LB15, LB19a) that Pango's tables don't have yet.
bool partsAtQuotation(std::u32string_view text, std::size_t at) {
    const auto closesQuotation = [](char32_t c) { return g_unichar_type(c) == G_UNICODE_FINAL_PUNCTUATION; };
    const auto opensBracket = [](char32_t c) { return g_unichar_type(c) == G_UNICODE_OPEN_PUNCTUATION; };
    const char32_t after = text[at];
    if (isBlank(text[at - 1]) && opensBracket(after)) {
        std::size_t last = at - 1;
        while (last > 0 && isBlank(text[last])) --last;
        return closesQuotation(text[last]) || isOneOf(text[last], U"\"'");
    }
    // Between wide characters the marks are as wide as these.
    if (closesQuotation(text[at - 1]) && at >= 2 && isWide(text[at - 2]) && isWide(after)) {
        const GUnicodeBreakType type = g_unichar_break_type(after);
        return type == G_UNICODE_BREAK_IDEOGRAPHIC || type == G_UNICODE_BREAK_OPEN_PUNCTUATION;
    }
    if (g_unichar_type(after) == G_UNICODE_INITIAL_PUNCTUATION && at + 1 < text.size() && isWide(text[at + 1]))
        return isWide(text[at - 1]) && !opensBracket(text[at - 1]);
    return false;
}

// Marks, and the vowels of Thai and Lao that are letters to Unicode.
bool belongsToCharacterBefore(char32_t c) {
    switch (g_unichar_type(c)) {
        case G_UNICODE_SPACING_MARK:
        case G_UNICODE_NON_SPACING_MARK:
        case G_UNICODE_ENCLOSING_MARK: return true;
        default: return isOneOf(c, U"\u0E30\u0E32\u0E33\u0E45\u0EB0\u0EB2\u0EB3\u0EBD");
    }
}

bool belongsToCharacterAfter(char32_t c) {
    return (c >= 0x0E40 && c <= 0x0E44) || (c >= 0x0EC0 && c <= 0x0EC4);
}

// A virama that joins the next consonant (UAX #29, GB9c, and the stacks of other scripts). Viramas that are mostly
// visible signs join only when a joiner follows.
bool joinsNextConsonant(std::u32string_view before) {
    const auto isVirama = [](char32_t c) {
        constexpr auto virama = static_cast<hb_unicode_combining_class_t>(9);
        return hb_unicode_combining_class(hb_unicode_funcs_get_default(), c) == virama;
    };
    const bool joined = before.back() == joiner;
    if (joined) before.remove_suffix(1);
    if (before.empty() || !isVirama(before.back())) return false;
    constexpr std::u32string_view silencing = U"\u0BCD\u0DCA\u0E3A\u0EBA\u0F84\u103A\u1BAA";
    return joined || !isOneOf(before.back(), silencing);
}

bool hasDictionary(char32_t c) {
    switch (g_unichar_get_script(c)) {
        case G_UNICODE_SCRIPT_KHMER:
        case G_UNICODE_SCRIPT_LAO:
        case G_UNICODE_SCRIPT_MYANMAR: return c <= 0xFFFF;
        default: return false;
    }
}

void addWords(std::u32string_view text, std::vector<Boundary>& boundaries) {
    for (auto from = text.begin(); (from = std::find_if(from, text.end(), hasDictionary)) != text.end();) {
        const auto to = std::find_if_not(from, text.end(), hasDictionary);
        const auto first = static_cast<std::size_t>(from - text.begin());
        const auto length = static_cast<std::size_t>(to - from);
        for (const std::size_t at : dictionaryBreaks(std::u16string(from, to)))
            if (at < length && boundaries[first + at].cut) boundaries[first + at].line = Boundary::Line::mayEnd;
        from = to;
    }
}

}  // namespace

bool isBlank(char32_t character) {
    constexpr char32_t oghamSpace = U'\u1680';  // a stroke
    return character == U'\t' || (g_unichar_type(character) == G_UNICODE_SPACE_SEPARATOR && character != oghamSpace);
}

std::vector<Boundary> boundaries(std::u32string_view text, std::span<const PangoLogAttr> attributes) {
    using enum Boundary::Line;
    constexpr int mostTogether = 4;  // marks on one letter, in any orthography
    int marks = 0;
    std::vector<Boundary> found(text.size() + 1);
    for (std::size_t at = 1; at < text.size(); ++at) {
        const char32_t before = text[at - 1];
        const char32_t after = text[at];
        if (isAscii(before) && isAscii(after)) {
            found[at].cut = found[at].split = attributes[at].is_cursor_position;
            if (attributes[at].is_line_break && !staysAmongAscii(text, at)) found[at].line = mayEnd;
            continue;
        }
        const bool isMark = belongsToCharacterBefore(after);
        marks = isMark ? marks + 1 : 0;
        found[at].split = (!isMark || marks > mostTogether) && after != joiner && before != joiner;
        found[at].cut = attributes[at].is_cursor_position && !isMark && !belongsToCharacterAfter(before) &&
                        !(g_unichar_isalpha(after) && joinsNextConsonant(text.substr(0, at)));
        if (attributes[at].is_line_break || partsAtQuotation(text, at))
            found[at].line = before == softHyphen ? mayEndWithHyphen : mayEnd;
    }
    found.back() = {mayEnd, true, true};
    addWords(text, found);
    return found;
}

}  // namespace orvel
