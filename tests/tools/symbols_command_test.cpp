#include <algorithm>

#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

TEST_F(Command, ListsTheSymbolsThatGoWithAText) {
    const Answer all = run({"symbols"});
    EXPECT_EQ(all.code, done) << all.err;
    EXPECT_GT(std::ranges::count(all.out, '\n'), 3000);
    EXPECT_NE(all.out.find("\nfigure.walk\n"), std::string::npos);
    for (const auto& [text, first] : {std::pair("Truck.Box", "truck.box\ntruck.box.fill\n"), {"home", "house\n"}})
        EXPECT_TRUE(run({"symbols", text}).out.starts_with(first)) << text;
}

TEST_F(Command, OffersTheNearestSymbolWhenNoneGoesWithTheText) {
    for (const char* option : {"--picture=sheet.png", "--picture=-"}) {
        const Answer none = run({"symbols", "calender", option});
        EXPECT_EQ(none.code, failed);
        EXPECT_EQ(none.err, "orvel: no symbol goes with \"calender\"; the nearest is \"calendar\"\n");
        EXPECT_TRUE(none.out.empty());
    }
    EXPECT_EQ(run({"symbols", "no\nsuch\x1b"}).err, "orvel: no symbol goes with \"no such \"\n");
    EXPECT_TRUE(machine.files.contents.empty());
}

TEST_F(Command, DrawsSymbolsWithTheirNames) {
    EXPECT_EQ(run({"symbols", "figure.run", "--picture", "-"}).out.substr(0, 4), "\x89PNG");
    // Everything that is drawn is a path or, with newer versions of Cairo, a rectangle. In older ones the shape of each
    // letter looks like one, in a symbol of the format.
    const auto count = [](const std::string& text, std::string_view part) {
        std::ptrdiff_t found = 0;
        for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++found;
        return found;
    };
    for (const char* text : {"figure.run", "circle.fill"}) {
        EXPECT_EQ(run({"symbols", text, "--picture", "sheet.svg"}).code, done);
        const std::string& svg = machine.files.contents["sheet.svg"];
        const auto drawn = count(svg, "<path style") + count(svg, "<path fill") + count(svg, "<rect ");
        EXPECT_EQ(drawn - count(svg, "<symbol "), count(run({"symbols", text}).out, "\n") + 1) << "and the background";
    }
    EXPECT_EQ(run({"symbols", "--picture", "sheet.gif"}).err,
              "orvel: sheet.gif: the ending must be .png, .svg or .pdf\n");
}

}  // namespace
}  // namespace orvel::tools
