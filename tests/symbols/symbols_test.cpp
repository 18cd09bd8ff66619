#include "platform/symbols/symbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <span>
#include <sstream>

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

std::string textOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

NameTable nearNames() {
    static const std::string text = textOf(ORVEL_NEAR_NAMES);
    return NameTable(text);
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
    for (const auto& [name, parts] : symbol_data::composed().entries())
        EXPECT_TRUE(symbols.contains(name)) << name << " -> " << parts;
    for (const auto& [name, weight] : symbol_data::enclosable().entries()) EXPECT_TRUE(symbols.contains(name)) << name;
    for (const auto& [name, picture] : nearNames().entries()) EXPECT_TRUE(symbols.contains(name)) << name;
    for (const auto& [word, targets] : symbol_data::synonyms().entries()) {
        std::istringstream each{std::string(targets)};
        for (std::string target; each >> target;) EXPECT_TRUE(symbols.contains(target)) << word << " -> " << target;
        EXPECT_FALSE(targets.empty()) << word;
    }
    for (const auto& table :
         {symbol_data::respelled(), symbol_data::secondSet(), symbol_data::secondCodes(), symbol_data::composed(),
          symbol_data::drawn(), symbol_data::enclosable(), symbol_data::synonyms(), nearNames()})
        for (const auto& [name, value] : table.entries())
            EXPECT_EQ(table.find(name), value) << name << " is out of order";
}

TEST(Symbols, LogosOfCompaniesAreNotAmongThem) {
    const Symbols symbols;
    const auto isLogo = [](std::string_view text) {
        return text.find("logo") != text.npos || text.find("lego") != text.npos;
    };
    for (const char* name : {"logo.android", "logo.google", "logo.linkedin", "logo.twitter.fill", "logo.github.circle",
                             "github.logo", "amazon.logo.fill"})
        EXPECT_FALSE(symbols.contains(name)) << name;
    for (const std::string& name : symbols.names()) EXPECT_FALSE(isLogo(name)) << name;
    // Neither under another name, nor as a part.
    for (const auto& table : {symbol_data::respelled(), symbol_data::secondSet(), symbol_data::composed()})
        for (const auto& [name, value] : table.entries()) EXPECT_FALSE(isLogo(value)) << name << " -> " << value;
}

// The file says which pictures are only near, and docs/symbols.md how many.
TEST(Symbols, AreAsManyAsTheirDocumentSays) {
    const auto names = Symbols().names();
    const NameTable nearTable = nearNames();
    const auto isNear = [&](std::string name) {
        for (const char* ending : {".fill", ".circle", ".square", ".slash"}) {
            if (nearTable.find(name)) return true;
            if (name.ends_with(ending)) name.resize(name.size() - std::string_view(ending).size());
        }
        return nearTable.find(name).has_value();
    };
    const auto nearCount = std::ranges::count_if(names, isNear);
    const auto count = static_cast<std::ptrdiff_t>(names.size());
    const std::string expected = "| " + std::to_string(count - nearCount) + " | " + std::to_string(nearCount) + " | ";
    EXPECT_NE(textOf(ORVEL_SYMBOLS_DOCUMENT).find(expected), std::string::npos) << expected;
}

TEST(Symbols, FilledOnesDiffer) {
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
    const std::pair<const char*, const char*> cases[] = {{"flag.fill", "flag.fill"},
                                                         {"calender", "calendar"},
                                                         {"flga.fill", "flag.fill"},
                                                         {"flag_fill", "flag.fill"},
                                                         {"Heart.Filled", "heart.fill"},
                                                         {"figure.running", "figure.run"},
                                                         {"heart.fill.", "heart.fill"},
                                                         {"user", "person"},
                                                         {"user.circle.fill", "person.circle.fill"},
                                                         {"Home", "house"},
                                                         {"shopping_cart", "cart"},
                                                         {"to-do", "checklist"},
                                                         {"settings.2", "gearshape.2"}};
    for (const auto& [name, nearest] : cases) EXPECT_EQ(symbols.nearest(name), nearest) << name;
    for (const char* name : {"", "x", "quantum flux"}) EXPECT_EQ(symbols.nearest(name), std::nullopt) << name;
}

TEST(Symbols, AreFoundByEverydayWords) {
    const Symbols symbols;
    const struct {
        const char* words;
        std::vector<std::string> first;  ///< what is found first, in this order
        const char* also;                ///< what is found too
        const char* not_;                ///< what isn't
    } cases[] = {
        {"house", {"house", "house.alt", "house.circle"}, "bolt.house", "person"},  // its words before others' words
        {"home", {"house"}, "music.note.house", "person"},
        {"Home", {"house"}, "house.fill", "person"},
        {"homes", {"house"}, "house.fill", "person"},
        {"calendars", {"calendar"}, "calendar.circle", "house"},
        {"weather", {"cloud.sun", "sun.max", "cloud.rain"}, "wind.snow", "house"},  // synonyms before their kin
        {"user.fill", {"person.fill"}, "person.2.fill", "person"},                  // each word by itself
        {"cart shopping", {"cart"}, "cart.fill", "bag"},
        {"to do", {"checklist", "list.bullet", "checkmark.circle"}, "list.bullet.indent", "house"},
        {"timer", {"timer"}, "timer.circle", "hourglass"},
        {"time", {"clock", "timer", "hourglass"}, "timelapse", "house"},  // a part of a word last
        {"ruck.bo", {"truck.box"}, "truck.box.fill", "cart"},             // across words
        {"flag_fill", {"flag.fill"}, "flag.circle.fill", "flag"},
    };
    for (const auto& [words, first, also, not_] : cases) {
        const auto found = symbols.search(words);
        ASSERT_GE(found.size(), first.size()) << words;
        EXPECT_TRUE(std::ranges::equal(first, std::span(found).first(first.size()))) << words << ": " << found[0];
        EXPECT_NE(std::ranges::find(found, also), found.end()) << words;
        EXPECT_EQ(std::ranges::find(found, not_), found.end()) << words;
    }
    EXPECT_EQ(symbols.search(""), symbols.names());
    EXPECT_EQ(symbols.search(" . "), symbols.names());
    for (const std::string& nothing :
         {std::string("calender"), std::string("house calender"), std::string(10'000, 'a')})
        EXPECT_TRUE(symbols.search(nothing).empty()) << nothing.substr(0, 20);
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
