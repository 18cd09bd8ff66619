#include "platform/foundation/unicode.h"

#include <unicase.h>
#include <unictype.h>
#include <unigbrk.h>
#include <uninorm.h>
#include <unistr.h>
#include <uniwidth.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace orvel::unicode {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

const std::uint8_t* bytes(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isWhitespace(ucs4_t character) {
    if (character < 0x80) return character == ' ' || character == '\t';
    return uc_is_general_category(character, UC_SPACE_SEPARATOR);
}

// The first boundary inside the text for which `enough(position, clusters before it)` holds, or the text's end.
// Examines ever longer beginnings of the text, so that a near boundary in a long text is found quickly.
template <class Enough>
std::size_t firstBoundary(std::string_view text, Enough enough) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    for (std::size_t window = 256;; window *= 4) {
        std::size_t length = std::min(text.size(), window);
        while (length > 0 && length < text.size() && continues(text[length])) --length;
        std::vector<char> startsCluster(length);
        u8_grapheme_breaks(bytes(text), length, startsCluster.data());
        std::size_t clusters = 0;
        for (std::size_t i = 1; i < length; ++i)
            if (startsCluster[i] && enough(i, ++clusters)) return i;
        if (length == text.size()) return text.size();
    }
}

constexpr ucs4_t replacement = 0xFFFD;

// Calls `visit` with each character and its bytes; invalid bytes are U+FFFD.
template <class Visit>
void forEachCharacter(std::string_view text, Visit visit) {
    while (!text.empty()) {
        ucs4_t character = static_cast<unsigned char>(text.front());
        int length = 1;
        if (character >= 0x80) length = u8_mbtouc(&character, bytes(text), text.size());
        visit(character, text.substr(0, static_cast<std::size_t>(length)));
        text.remove_prefix(static_cast<std::size_t>(length));
    }
}

// Control characters, and line and paragraph separators.
bool breaksOrControls(ucs4_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 || character == 0x2029;
}

// Embeddings, overrides and isolates.
bool directs(ucs4_t character) {
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

}  // namespace

bool isValid(std::string_view text) {
    return u8_check(bytes(text), text.size()) == nullptr;
}

std::size_t validLength(std::string_view text) {
    const std::uint8_t* const invalid = u8_check(bytes(text), text.size());
    return invalid ? static_cast<std::size_t>(invalid - bytes(text)) : text.size();
}

std::string uppercased(std::string_view text) {
    std::string upper(text);
    if (isAscii(text)) {
        std::transform(upper.begin(), upper.end(), upper.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; });
        return upper;
    }
    if (!isValid(text)) return upper;
    std::size_t length = 0;
    const std::unique_ptr<std::uint8_t, Free> mapped(
        u8_toupper(bytes(text), text.size(), nullptr, nullptr, nullptr, &length));
    if (mapped) upper.assign(reinterpret_cast<const char*>(mapped.get()), length);
    return upper;
}

bool canonicallyEquivalent(std::string_view a, std::string_view b) {
    if (a == b) return true;
    if ((isAscii(a) && isAscii(b)) || !isValid(a) || !isValid(b)) return false;
    int order = 0;
    return u8_normcmp(bytes(a), a.size(), bytes(b), b.size(), UNINORM_NFD, &order) == 0 && order == 0;
}

std::string decomposed(std::string_view text) {
    if (isAscii(text) || !isValid(text)) return std::string(text);
    std::size_t length = 0;
    const std::unique_ptr<std::uint8_t, Free> normal(
        u8_normalize(UNINORM_NFD, bytes(text), text.size(), nullptr, &length));
    return normal ? std::string(reinterpret_cast<const char*>(normal.get()), length) : std::string(text);
}

std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    forEachCharacter(text, [&](ucs4_t character, std::string_view bytesOfIt) {
        if (breaksOrControls(character))
            line += ' ';
        else if (character == replacement)
            line += "\uFFFD";
        else if (!directs(character))
            line += bytesOfIt;
    });
    return line;
}

std::string escapingForJson(std::string_view json) {
    std::string escaped;
    escaped.reserve(json.size());
    forEachCharacter(json, [&](ucs4_t character, std::string_view bytesOfIt) {
        if (character >= 0x20 && (breaksOrControls(character) || directs(character))) {
            char escape[12];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
            escaped += escape;
        } else {
            escaped += bytesOfIt;
        }
    });
    return escaped;
}

std::size_t columns(std::string_view text) {
    return static_cast<std::size_t>(u8_width(bytes(text), text.size(), "UTF-8"));
}

std::string_view prefix(std::string_view text, std::size_t count) {
    if (count == 0) return {};
    return text.substr(0, firstBoundary(text, [=](std::size_t, std::size_t clusters) { return clusters == count; }));
}

std::size_t clusterBoundary(std::string_view text, std::size_t byte) {
    if (byte == 0) return 0;
    return firstBoundary(text, [=](std::size_t position, std::size_t) { return position >= byte; });
}

std::string limitingMarks(std::string_view text, std::size_t most) {
    std::string limited;
    limited.reserve(text.size());
    std::size_t marks = 0;
    for (int length = 0; !text.empty(); text.remove_prefix(static_cast<std::size_t>(length))) {
        ucs4_t character = 0;
        length = u8_mbtouc(&character, bytes(text), text.size());
        const bool isMark = character >= 0x80 && uc_is_general_category(character, UC_MARK);
        if (isMark)
            ++marks;
        else if (character < 0x80 || !uc_is_general_category(character, UC_FORMAT))
            marks = 0;
        if (!isMark || marks <= most) limited += text.substr(0, static_cast<std::size_t>(length));
    }
    return limited;
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
