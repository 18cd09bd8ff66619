#include <algorithm>

#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

TEST_F(Command, ListsTheSymbolsWhoseNamesContainAText) {
    const Answer all = run({"symbols"});
    EXPECT_EQ(all.code, done) << all.err;
    EXPECT_GT(std::ranges::count(all.out, '\n'), 3000);
    EXPECT_NE(all.out.find("\nfigure.walk\n"), std::string::npos);
    EXPECT_EQ(run({"symbols", "Truck.Box"}).out, "truck.box\ntruck.box.fill\n");
}

TEST_F(Command, OffersTheNearestSymbolWhenNoneContainsTheText) {
    for (const char* option : {"--picture=sheet.png", "--picture=-"}) {
        const Answer none = run({"symbols", "calender", option});
        EXPECT_EQ(none.code, failed);
        EXPECT_EQ(none.err, "orvel: no symbol's name contains \"calender\"; the nearest is \"calendar\"\n");
        EXPECT_TRUE(none.out.empty());
    }
    EXPECT_EQ(run({"symbols", "no\nsuch\x1b"}).err, "orvel: no symbol's name contains \"no such \"\n");
    EXPECT_TRUE(machine.files.contents.empty());
}

TEST_F(Command, DrawsSymbolsWithTheirNames) {
    EXPECT_EQ(run({"symbols", "figure.run", "--picture", "-"}).out.substr(0, 4), "\x89PNG");
    EXPECT_EQ(run({"symbols", "figure.run", "--picture", "few.svg"}).code, done);
    EXPECT_EQ(run({"symbols", "circle.fill", "--picture", "many.svg"}).code, done);
    const auto& files = machine.files.contents;
    ASSERT_TRUE(files.contains("few.svg") && files.contains("many.svg"));
    // Everything that is drawn is a path, and so is the shape of each letter, which is in a symbol of the format.
    const auto count = [&](const char* file, std::string_view element) {
        const std::string& svg = files.at(file);
        std::ptrdiff_t found = 0;
        for (auto at = svg.find(element); at != svg.npos; at = svg.find(element, at + 1)) ++found;
        return found;
    };
    const auto drawn = [&](const char* file) { return count(file, "<path style") - count(file, "<symbol "); };
    const auto lines = [&](const char* text) {
        const std::string out = run({"symbols", text}).out;
        return std::ranges::count(out, '\n');
    };
    EXPECT_EQ(drawn("few.svg"), lines("figure.run") + 1) << "and the background";
    EXPECT_EQ(drawn("many.svg"), lines("circle.fill") + 1);
    EXPECT_EQ(run({"symbols", "--picture", "sheet.gif"}).err,
              "orvel: sheet.gif: the ending must be .png, .svg or .pdf\n");
}

}  // namespace
}  // namespace orvel::tools
