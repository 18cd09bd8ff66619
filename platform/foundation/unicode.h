// Text as people see it: case, canonical equivalence and user-perceived characters, by the Unicode standard's locale-
// independent rules. All texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace orvel::unicode {

bool isValid(std::string_view text);

/// How many bytes at its beginning are valid.
std::size_t validLength(std::string_view text);

/// Full upper-case mapping (UnicodeData and the unconditional lines of SpecialCasing): "ß" becomes "SS". Text that is
/// not valid UTF-8 is returned unchanged.
std::string uppercased(std::string_view text);

/// Canonical equivalence (UAX #15). Texts that are not valid UTF-8 are equivalent only when their bytes are equal.
bool canonicallyEquivalent(std::string_view a, std::string_view b);

/// The canonical decomposition (NFD), equal for canonically equivalent texts. Text that is not valid UTF-8 is returned
/// unchanged.
std::string decomposed(std::string_view text);

/// The text on one line, safe for terminals, window titles and status bars: each control character (general category
/// Cc) and each line or paragraph separator becomes a blank, invalid UTF-8 becomes U+FFFD, and explicit directional
/// formatting (UAX #9), which would affect the text after it, is removed.
std::string onOneLine(std::string_view text);

/// JSON with everything that `onOneLine` would change written as an escape, which leaves its values unchanged.
std::string escapingForJson(std::string_view json);

/// How many columns of a terminal the text takes (UAX #11: wide characters two, marks none).
std::size_t columns(std::string_view text);

/// The text's first `count` extended grapheme clusters (UAX #29), or all of it when it has fewer.
std::string_view prefix(std::string_view text, std::size_t count);

/// The position of the first boundary between extended grapheme clusters at or after that byte.
std::size_t clusterBoundary(std::string_view text, std::size_t byte);

/// The text with at most that many marks (general category M) on a letter; further ones are removed. Invisible format
/// characters (Cf), such as joiners, don't begin another letter.
std::string limitingMarks(std::string_view text, std::size_t most);

/// The text without code points of general category Zs and tabs at both ends. Line breaks stay.
std::string_view trimmingWhitespace(std::string_view text);

}  // namespace orvel::unicode
