#include "platform/symbols/symbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "platform/symbols/symbol_data.h"

namespace orvel {
namespace {

using Verb = SymbolOutline::Verb;

using Polygons = std::vector<std::vector<Point>>;

Polygons polygons(const SymbolOutline& outline) {
    Polygons result;
    for (const auto& [verb, points] : outline.segments) {
        if (verb == Verb::move) result.emplace_back();
        const int count = verb == Verb::cubic ? 3 : verb == Verb::quadratic ? 2 : 1;
        result.back().insert(result.back().end(), points, points + count);
    }
    return result;
}

Rect box(const SymbolOutline& outline) {
    double left = 1, top = 1, right = 0, bottom = 0;
    for (const auto& polygon : polygons(outline))
        for (const Point& point : polygon) {
            left = std::min(left, point.x), right = std::max(right, point.x);
            top = std::min(top, point.y), bottom = std::max(bottom, point.y);
        }
    return {{left, top}, {right - left, bottom - top}};
}

TEST(Symbols, AreFoundByNameAndNothingElse) {
    const Symbols symbols;
    for (const char* name : {"flag.fill", "square.grid.2x2", "person.2.fill", "plus", "globe"})
        EXPECT_TRUE(symbols.contains(name)) << name;
    for (const char* name : {"", ".", "a", "space", "Flag.fill", "flag_fill", "flag.fill ", ".fill", ".circle.fill",
                             "leaf..fill", "../flag", ".notdef", "flag\n", "pill-fill", "no.such.symbol", "牛"})
        EXPECT_FALSE(symbols.contains(name)) << name;
    EXPECT_FALSE(symbols.contains({"flag\0", 5}));
    EXPECT_FALSE(symbols.contains(std::string(10'000'000, 'x')) || symbols.nearest(std::string(10'000'000, 'x')));
}

TEST(Symbols, EveryNameHasAnOutlineOfSensibleSize) {
    const Symbols symbols;
    const auto names = symbols.names();
    EXPECT_GT(names.size(), 3000u);
    EXPECT_EQ(std::ranges::adjacent_find(names, std::ranges::greater_equal{}), names.end()) << "sorted, each once";
    for (const std::string& name : names) {
        const SymbolOutline* const outline = symbols.outline(name);
        ASSERT_NE(outline, nullptr) << name;
        const Rect ink = box(*outline);
        EXPECT_GT(std::max(ink.size.width, ink.size.height), 0.3) << name;
        EXPECT_GT(std::min(ink.origin.x, ink.origin.y), -0.05) << name;
        EXPECT_LT(std::max(ink.origin.x + ink.size.width, ink.origin.y + ink.size.height), 1.05) << name;
    }
}

TEST(Symbols, TablesNameWhatTheFontsHave) {
    const Symbols symbols;
    for (const auto& [name, glyph] : symbol_data::respelled().entries())
        EXPECT_TRUE(symbols.contains(name)) << name << " -> " << glyph;
    for (const auto& [name, icon] : symbol_data::secondSet().entries()) {
        EXPECT_TRUE(symbols.contains(name)) << name << " -> " << icon;
        EXPECT_TRUE(icon.ends_with("-fill") || symbols.contains(std::string(name) + ".fill")) << name;
    }
    for (const auto& [name, weight] : symbol_data::enclosable().entries()) EXPECT_TRUE(symbols.contains(name)) << name;
    for (const auto& table :
         {symbol_data::respelled(), symbol_data::secondSet(), symbol_data::secondCodes(), symbol_data::enclosable()})
        for (const auto& [name, value] : table.entries())
            EXPECT_EQ(table.find(name), value) << name << " is out of order";
}

TEST(Symbols, AFilledOneIsAnother) {
    const Symbols symbols;
    // From either font, spelled otherwise, and enclosed.
    for (const std::string name : {"heart", "leaf", "tree", "message", "dollarsign.circle", "fish.circle"})
        EXPECT_NE(polygons(*symbols.outline(name)), polygons(*symbols.outline(name + ".fill"))) << name;
}

TEST(Symbols, BothFontsLookEquallyLargeAndCentred) {
    const Symbols symbols;
    for (const char* name : {"info.circle", "0.circle"}) {
        const Rect ink = box(*symbols.outline(name));
        EXPECT_NEAR(ink.size.width, box(*symbols.outline("info.circle")).size.width, 0.02);
        EXPECT_NEAR(ink.center().x, 0.5, 0.01);
        EXPECT_NEAR(ink.center().y, 0.5, 0.01);
    }
}

TEST(Symbols, AreCutOutOfFilledShapes) {
    const Symbols symbols;
    // Above zero for one direction, below for the other.
    const auto areas = [&](const char* name, auto measure) {
        double sum = 0;
        for (const auto& polygon : polygons(*symbols.outline(name))) {
            double twice = 0;
            for (std::size_t i = 0; i < polygon.size(); ++i) {
                const Point& next = polygon[(i + 1) % polygon.size()];
                twice += polygon[i].x * next.y - next.x * polygon[i].y;
            }
            sum += measure(twice / 2);
        }
        return sum;
    };
    const auto unsignedArea = [](double area) { return std::abs(area); };
    // Five areas without holes, which don't all run the same way in the font.
    const double expected = areas("circle.fill", unsignedArea) - 0.56 * 0.56 * areas("pawprint.fill", unsignedArea);
    EXPECT_NEAR(std::abs(areas("pawprint.circle.fill", std::identity())), expected, 1e-6);
}

TEST(Symbols, NearestIsWhatWasProbablyMeant) {
    const Symbols symbols;
    const std::pair<const char*, const char*> cases[] = {
        {"flag.fill", "flag.fill"},   {"calender", "calendar"},       {"flga.fill", "flag.fill"},
        {"flag_fill", "flag.fill"},   {"Heart.Filled", "heart.fill"}, {"figure.running", "figure.run"},
        {"heart.fill.", "heart.fill"}};
    for (const auto& [name, nearest] : cases) EXPECT_EQ(symbols.nearest(name), nearest) << name;
    for (const char* name : {"", "x", "quantum flux"}) EXPECT_EQ(symbols.nearest(name), std::nullopt) << name;
}

TEST(NameTable, FindsWholeNamesOnly) {
    const NameTable table("# a comment\na 1\na.b 2\nalone\nb c d\n");
    EXPECT_EQ(table.find("a"), "1");
    EXPECT_EQ(table.find("a.b"), "2");
    EXPECT_EQ(table.find("alone"), "");
    EXPECT_EQ(table.find("b"), "c d");
    for (const char* name : {"", "#", "a.", "al", "alone ", "b c", "c", "z"}) EXPECT_FALSE(table.find(name)) << name;
    EXPECT_EQ(table.entries().size(), 4u);
    EXPECT_FALSE(NameTable("").find("a"));
}

}  // namespace
}  // namespace orvel
