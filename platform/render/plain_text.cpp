#include "platform/render/plain_text.h"

#include <glib.h>

#include <algorithm>
#include <memory>

#include "platform/foundation/release_with.h"
#include "platform/foundation/unicode.h"
#include "platform/render/boundaries.h"

namespace orvel {
namespace {

constexpr std::size_t mostMarks = 64;  // on one letter; more would be drawn far outside of any line

// The bytes of a mandatory line break at the start of the text, or 0.
std::size_t lineBreakLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    if (!text.empty() && text.front() >= '\n' && text.front() <= '\r') return 1;
    if (text.starts_with("\xC2\x85")) return 2;
    if (text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9")) return 3;
    return 0;
}

// Control characters (category Cc) have no glyph; tabs do.
std::size_t invisibleLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if ((first < 0x20 && first != '\t') || first == 0x7F) return 1;
    if (first == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0) return 2;
    return 0;
}

std::size_t blankLength(std::string_view text) {
    const gunichar first = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
    const bool valid = first < 0x110000;
    return valid && isBlank(first) ? static_cast<std::size_t>(g_unichar_to_utf8(first, nullptr)) : 0;
}

std::string withoutControls(std::string_view text) {
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const std::size_t invisible = invisibleLength(text);
        if (invisible == 0) visible += text.front();
        text.remove_prefix(std::max<std::size_t>(invisible, 1));
    }
    return visible;
}

}  // namespace

std::string_view takeParagraph(std::string_view& text, std::size_t mostBytes) {
    std::size_t end = 0;
    while (end < std::min(text.size(), mostBytes) && lineBreakLength(text.substr(end)) == 0) ++end;
    if (end == mostBytes) end = text.size();
    const std::string_view paragraph = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(lineBreakLength(text));
    return paragraph;
}

std::string_view withoutBlankStart(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = std::max({lineBreakLength(text), invisibleLength(text), blankLength(text)});
        if (length == 0) break;
        text.remove_prefix(length);
    }
    return text;
}

std::string_view withoutBlankLinesAtStart(std::string_view text) {
    const std::string_view shown = withoutBlankStart(text);
    std::string_view rest = text;
    while (rest.size() > shown.size()) {
        const std::size_t length = lineBreakLength(rest);
        rest.remove_prefix(std::max<std::size_t>(length, 1));
        if (length > 0) text = rest;
    }
    return text;
}

std::string displayable(std::string_view text) {
    if (unicode::isValid(text)) return unicode::limitingMarks(withoutControls(text), mostMarks);
    const std::unique_ptr<char, ReleaseWith<g_free>> repaired(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    return unicode::limitingMarks(withoutControls(repaired.get()), mostMarks);
}

}  // namespace orvel
