#include "platform/foundation/unicode.h"

#include <gtest/gtest.h>

namespace orvel::unicode {
namespace {

TEST(Unicode, MapsAndComparesByTheTables) {
    for (const auto& [text, upper] : {std::pair("straße", "STRASSE"),
                                      {"ŉ ﬁ ǰ", "ʼN FI J̌"},
                                      {"i ı ς σ", "I I Σ Σ"},
                                      {"a\u0345ΐ", "AΙΪ́"},
                                      {"az{ é", "AZ{ É"}})
        EXPECT_TRUE(canonicallyEquivalent(uppercased(text), upper)) << uppercased(text);
    for (const auto& [a, b] : {std::pair("é", "e\u0301"),
                               {"각", "\u1100\u1161\u11A8"},
                               {"\u212B", "Å"},
                               {"a\u0323\u0301", "a\u0301\u0323"},
                               {"\u2126", "Ω"}}) {
        EXPECT_TRUE(canonicallyEquivalent(a, b)) << a;
        EXPECT_EQ(decomposed(a), decomposed(b));
    }
    for (const auto& [a, b] : {std::pair("ﬁ", "fi"), {"e\u0301\u0300", "e\u0300\u0301"}, {"a", "A"}, {"é", "e"}})
        EXPECT_FALSE(canonicallyEquivalent(a, b)) << a;
}

TEST(Unicode, LeavesIllFormedTextsAsTheyAre) {
    EXPECT_EQ(uppercased("bad \xFF x"), "bad \xFF x");
    for (const auto& [a, b] : {std::pair("\xFF", "\xFE"), std::pair("é", "\xFF")})
        EXPECT_FALSE(canonicallyEquivalent(a, b));
    EXPECT_EQ(decomposed("é\xFF"), "é\xFF");
}

TEST(Unicode, CountsUserPerceivedCharacters) {
    EXPECT_EQ(prefix("2025-12-31T", 10), "2025-12-31");
    EXPECT_EQ(prefix("2025-12-31\u0301T", 10), "2025-12-31\u0301") << "a mark belongs to the digit before it";
    EXPECT_EQ(prefix("a\r\nb", 2), "a\r\n");
    EXPECT_EQ(prefix("🇩🇪🇫🇷x", 1), "🇩🇪");
    EXPECT_EQ(prefix("👩‍👩‍👧x", 1), "👩‍👩‍👧");
    EXPECT_EQ(prefix("ab", 10), "ab");
    EXPECT_EQ(prefix("", 3), "");
    EXPECT_EQ(prefix("ab", 0), "");
    EXPECT_EQ(clusterBoundary("ab", 0), 0u);
    EXPECT_EQ(clusterBoundary("xe\u0301b", 2), 4u);
}

TEST(Unicode, TrimsSpacesAndTabsButNoLineBreaks) {
    EXPECT_EQ(trimmingWhitespace(" \t\u00A0\u3000\u2003a b\u1680 "), "a b");
    EXPECT_EQ(trimmingWhitespace("\na\n"), "\na\n");
    EXPECT_EQ(trimmingWhitespace("\u200Ba"), "\u200Ba") << "zero-width space left that category";
    EXPECT_EQ(trimmingWhitespace(" \t "), "");
    EXPECT_EQ(trimmingWhitespace(" \xFF "), "\xFF");
}

}  // namespace
}  // namespace orvel::unicode
