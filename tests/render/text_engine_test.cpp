#include "platform/render/pango_text_engine.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/render/shaped_text.h"
#include "platform/render/typeface.h"
#include "platform/ui/text_fit.h"

namespace orvel {
namespace {

// The lines as they are drawn, with bars between.
std::string drawn(const TextBlock& block) {
    std::string lines;
    for (const PangoLayoutLine* line : block.shaped->lines) {
        if (!lines.empty()) lines += '|';
        lines += textOf(*line);
    }
    return lines;
}

TEST(PangoTextEngine, UsesTheSystemFontWithoutSteps) {
    PangoTextEngine engine;
    const Font heavy = Font::system(34, Font::Weight::heavy);
    EXPECT_NEAR(engine.metrics(heavy).ascent, 0.96875 * 34, 0.01);
    EXPECT_NEAR(engine.metrics(heavy).descent, 0.2412 * 34, 0.02);
    const auto width = [&](double size, Font::Weight weight) {
        return engine.layOut("1,284 days", Font::system(size, weight), std::nullopt, 1).width;
    };
    for (double size = 17; size < 34; size += 0.37)
        EXPECT_NEAR(width(size, Font::Weight::heavy), width(34, Font::Weight::heavy) * size / 34, 0.03);
    EXPECT_LT(width(20, Font::Weight::regular), width(20, Font::Weight::medium));
    EXPECT_LT(width(20, Font::Weight::medium), width(20, Font::Weight::bold));
    EXPECT_LT(width(20, Font::Weight::bold), width(20, Font::Weight::heavy));
}

TEST(PangoTextEngine, BreaksAndCuts) {
    PangoTextEngine engine;
    const Font font = Font::system(10);
    const struct {
        const char* why;
        std::string text;
        std::optional<double> width;
        int mostLines;
        int lines;
        std::string shown;
    } cases[] = {
        {"one line", "plain", std::nullopt, 9, 1, "plain"},
        {"own breaks", "a\nb\r\nc\u2028d\u2029e\vf", std::nullopt, 9, 6, "a\nb\nc\nd\ne\nf"},
        {"between words", "several words wrap", 50, 9, 3, "several words wrap"},
        {"inside a long word", "incomprehensibilities", 40, 9, 3, "incomprehensibilities"},
        {"cut on the last line", "several words wrap here and there", 50, 2, 2, "several words w…"},
        {"cut at a break of its own", "first\nsecond", 90, 1, 1, "first…"},
        {"cut even at a break in narrow space", "first line\nsecond", 40, 1, 1, "first li…"},
        {"what shows nothing isn't missed at the end", "first\n \u00A0\n", 90, 1, 1, "first"},
        {"nor at the start", "\n\t\nfirst\nsecond", 90, 1, 1, "first…"},
        {"where there is room it stays", "\nfirst\n", 90, 3, 3, "\nfirst\n"},
        {"an empty line counts", "a\n\nb", 90, 9, 3, "a\n\nb"},
        {"control characters have no glyph",
         "a\x01\x7F\u0085"
         "b\x1B[1m",
         90, 9, 2, "a\nb[1m"},
        {"no width at all", "abc", 0, 1, 1, "…"},
        {"nothing is an empty line", "", 10, 3, 1, ""},
    };
    for (const auto& c : cases) {
        const TextBlock block = engine.layOut(c.text, font, c.width, c.mostLines);
        EXPECT_EQ(block.lines, c.lines) << c.why;
        EXPECT_EQ(block.text, c.shown) << c.why;
        EXPECT_EQ(block.cut, block.text.ends_with("…")) << c.why;
        EXPECT_TRUE(block.width <= c.width.value_or(1000) + 0.01 || block.text == "…") << c.why;
    }
}

TEST(PangoTextEngine, EndsLinesWhereReadersExpect) {
    PangoTextEngine engine;
    const struct {
        const char* why;
        std::string text;
        double width;
        std::string lines;
    } cases[] = {
        {"blanks hang, however many", "AAAA BBBB CCCC EE               F", 110, "AAAA BBBB CCCC EE|F"},
        {"and at the very end, and before a break", "AAAA BBBB CCCC EE \t\u00A0\u3000\nb ", 110, "AAAA BBBB CCCC EE|b"},
        {"signs stay together", "write C++ or C#", 46, "write|C++ or|C#"},
        {"also beside blanks and brackets", "if (a != b && c->d)", 30, "if|(a !=|b &&|c->d)"},
        {"a hyphen inside a word, not before it", "e-mail --all", 32, "e-mail|--all"},
        {"a slash", "and/or 1/2", 32, "and/or|1/2"},
        {"a quotation and a bracket part", "a “word” (b)", 42, "a “word”|(b)"},
        {"between wide ones, too", "日本”（日本", 40, "日本”|（日本"},
        {"a soft hyphen shows where it breaks", "Schiff\u00ADfahrt", 40, "Schiff‐|fahrt"},
        {"and only there", "Schiff\u00ADfahrt", 90, "Schiff\u00ADfahrt"},
        {"Khmer", "ភាសាខ្មែរជាភាសា", 50, "ភាសាខ្មែរជា|ភាសា"},
        {"Lao", "ພາສາລາວເປັນພາສາ", 28, "ພາສາ|ລາວ|ເປັນ|ພາສາ"},
        {"Burmese", "မြန်မာဘာသာစကား", 66, "မြန်မာဘာသာ|စကား"},
        {"a vowel stays with its consonant", "ကာကာကာ", 1, "ကာ|ကာ|ကာ"},
    };
    for (const auto& c : cases) EXPECT_EQ(drawn(engine.layOut(c.text, Font::system(10), c.width, 9)), c.lines) << c.why;

    const TextBlock mixed = engine.layOut("خبز طازج hello there", Font::system(12), 80, 1);
    const auto* const leftmost = static_cast<PangoLayoutRun*>(mixed.shaped->lines.at(0)->runs->data);
    EXPECT_EQ(leftmost->item->length, 3) << "the ellipsis ends the line in the paragraph's direction";

    for (const char* text : {"العربية لغة جميلة", "wWwWwWwW iiii AVAVAV  ", "ភាសាខ្មែរជាភាសា", "क्षत्रियक्षत्रिय"})
        for (double width = 24; width < 100; width += 0.7)
            for (const int lines : {1, 9})
                EXPECT_LE(engine.layOut(text, Font::system(12), width, lines).width, width + 1e-3) << text;
}

TEST(PangoTextEngine, FitsAHeadlineAndTallScripts) {
    PangoTextEngine engine;
    const TextStyle headline{Font::system(34, Font::Weight::heavy), 1, 0.5};
    const auto fitted = [&](std::string_view text) { return fitText(text, headline, {138, 100}, engine); };
    for (const auto& [text, shown] : {std::pair{"a\nb", "a…"}, {"\nb", "b"}, {"42\n", "42"}, {"", ""}}) {
        EXPECT_EQ(fitted(text).block.text, shown);
        EXPECT_EQ(fitted(text).size.height, 42) << "shrinking would show no more of " << text;
    }
    for (const char* usual : {"Ếgj", "漢字", "🥑", "עברית"}) EXPECT_EQ(fitted(usual).size.height, 42) << usual;
    for (const char* tall : {"རྒྱུད", "မြို့ကြီး"}) {
        const FittedText text = fitted(tall);
        EXPECT_GT(text.size.height / text.scale, 45) << tall;
        EXPECT_GE(text.baseline, text.block.otherFaces.ascent * text.scale) << tall;
        EXPECT_GE(text.lineHeight - text.baseline, text.block.otherFaces.descent * text.scale) << tall;
    }
}

TEST(PangoTextEngine, IsAsWideAsItsInk) {
    PangoTextEngine engine;
    const Font font = Font::system(10);
    const auto natural = [&](std::string_view text) { return engine.layOut(text, font, std::nullopt, 1).width; };
    EXPECT_NEAR(engine.layOut("several  \t words", font, 60, 9).width, natural("several"), 0.01) << "trailing blanks";
    for (double width = 20; width < 100; ++width) {
        const TextBlock cut = engine.layOut("several words wrap here", font, width, 1);
        EXPECT_NEAR(cut.width, natural(cut.text), 1) << "the ellipsis isn't stretched to " << width;
    }
}

TEST(PangoTextEngine, NeverCutsInsideACluster) {
    PangoTextEngine engine;
    for (const std::string cluster :
         {"👩‍👩‍👧", "🇩🇪", "e\u0301\u0302", "각", "நி", "स्ते", "ন্ধু", "ន្ត្រី", "ဒေါ", "ເກາ"}) {
        std::string text;
        for (int i = 0; i < 40; ++i) text += cluster;
        for (double width = 12; width < 100; width += 7) {
            const TextBlock block = engine.layOut(text, Font::system(12), width, 1);
            ASSERT_TRUE(block.text.ends_with("…"));
            EXPECT_EQ((block.text.size() - std::string("…").size()) % cluster.size(), 0u) << cluster << " at " << width;
        }
    }
    const TextBlock rightToLeft = engine.layOut("خبز طازج من الفرن", Font::system(12), 60, 1);
    EXPECT_TRUE(rightToLeft.cut && rightToLeft.text.starts_with("خبز")) << "the cut is at the logical end";
}

TEST(PangoTextEngine, ShapesOnlyWhatCanShow) {
    PangoTextEngine engine;
    const Font font = Font::system(9.5, Font::Weight::bold);
    std::string text;
    while (text.size() < 10'000'000) text += "MANY WORDS OF A TITLE ";
    const std::string start = text.substr(0, 600);
    for (const int lines : {1, 5})
        EXPECT_EQ(engine.layOut(text, font, 138, lines).text, engine.layOut(start, font, 138, lines).text);
    EXPECT_TRUE(engine.layOut(text, font, std::nullopt, 1).cut);
    EXPECT_EQ(engine.layOut(text, font, 138, 256).lines, 256);
    const struct {
        std::string mark;
        int times;
        std::string why;
    } burdens[] = {{"\u0301", 50'000, "an accent"},
                   {"\u0903", 50'000, "a spacing mark, which takes a dotted circle where no letter is for it"},
                   {"\u0903\u200D", 1000, "joiners between don't make other letters"}};
    for (const auto& [mark, times, why] : burdens) {
        std::string burdened = "a";
        for (int i = 0; i < times; ++i) burdened += mark;
        const std::string shown = engine.layOut(burdened + "b", font, std::nullopt, 1).text;
        std::size_t marks = 0;
        for (std::size_t at = 0; (at = shown.find(mark.substr(0, 2), at)) != shown.npos; ++at) ++marks;
        EXPECT_EQ(marks, 64u) << why;
    }
    EXPECT_EQ(engine.layOut("bad \xFF bytes", font, std::nullopt, 1).text, "bad \uFFFD bytes");
}

}  // namespace
}  // namespace orvel
