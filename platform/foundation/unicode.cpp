#include "platform/foundation/unicode.h"

#include <unicase.h>
#include <unictype.h>
#include <unigbrk.h>
#include <uninorm.h>
#include <unistr.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace orvel::unicode {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

const std::uint8_t* bytes(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isWhitespace(ucs4_t character) {
    return character == '\t' || uc_is_general_category(character, UC_SPACE_SEPARATOR);
}

}  // namespace

bool isValid(std::string_view text) {
    return u8_check(bytes(text), text.size()) == nullptr;
}

std::string uppercased(std::string_view text) {
    std::string upper(text);
    if (isAscii(text)) {
        std::ranges::transform(upper, upper.begin(),
                               [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; });
        return upper;
    }
    std::size_t length = 0;
    const std::unique_ptr<std::uint8_t, Free> mapped(
        u8_toupper(bytes(text), text.size(), nullptr, nullptr, nullptr, &length));
    if (mapped) upper.assign(reinterpret_cast<const char*>(mapped.get()), length);
    return upper;
}

bool canonicallyEquivalent(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if (isAscii(a) && isAscii(b)) return false;
    int order = 0;
    return u8_normcmp(bytes(a), a.size(), bytes(b), b.size(), UNINORM_NFD, &order) == 0 && order == 0;
}

std::string_view prefix(std::string_view text, std::size_t count) {
    const std::uint8_t* const begin = bytes(text);
    const std::uint8_t* const end = begin + text.size();
    const std::uint8_t* at = begin;
    for (; count > 0 && at && at != end; --count) at = u8_grapheme_next(at, end);
    return at ? text.substr(0, static_cast<std::size_t>(at - begin)) : text;
}

std::string_view trimmingWhitespace(std::string_view text) {
    while (!text.empty()) {
        ucs4_t first = 0;
        const int length = u8_mbtoucr(&first, bytes(text), text.size());
        if (length <= 0 || !isWhitespace(first)) break;
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    while (!text.empty()) {
        const std::uint8_t* const end = bytes(text) + text.size();
        ucs4_t last = 0;
        const std::uint8_t* const start = u8_prev(&last, end, bytes(text));
        if (!start || !isWhitespace(last)) break;
        text.remove_suffix(static_cast<std::size_t>(end - start));
    }
    return text;
}

}  // namespace orvel::unicode
