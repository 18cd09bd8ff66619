#include <gtest/gtest.h>

#include "designer/placing/desktop_json.h"
#include "designer/placing/place_changes.h"
#include "desktop/places.h"
#include "tests/support/fakes.h"

namespace orvel::designer {
namespace {

using test::FakeMachine;

std::string boxes(const std::vector<Monitor>& monitors) {
    std::string text;
    for (const auto& [name, area, isMain] : monitors)
        text += name + (isMain ? "*" : "") + " " + std::to_string(static_cast<int>(area.origin.x)) + "," +
                std::to_string(static_cast<int>(area.origin.y)) + " " +
                std::to_string(static_cast<int>(area.size.width)) + "x" +
                std::to_string(static_cast<int>(area.size.height)) + "; ";
    return text;
}

TEST(Monitors, LieBesideOneAnotherInPoints) {
    const Output laptop{.name = "eDP-1", .area = {0, 0, 2560, 1600}, .scale = 2};
    const struct {
        std::vector<Output> outputs;
        OutputOrigins origins;
        const char* expected;
        const char* why;
    } rows[] = {
        {{laptop, {.name = "DP-1", .area = {1280, 0, 1920, 1080}, .primary = true}},
         OutputOrigins::points,
         "eDP-1 0,0 1280x800; DP-1* 1280,0 1920x1080; ",
         "each has its scale"},
        {{laptop, {.name = "DP-1", .area = {2560, 0, 3840, 2160}, .scale = 2}},
         OutputOrigins::pixels,
         "eDP-1* 0,0 1280x800; DP-1 1280,0 1920x1080; ",
         "without a main one the first is it"},
        {{laptop, {.name = "DP-1", .area = {0, 0, 1920, 1080}}},
         OutputOrigins::points,
         "eDP-1* 0,0 1280x800; DP-1 1280,0 1920x1080; ",
         "nobody says where they are"},
        {{}, OutputOrigins::points, "", "no display"},
    };
    for (const auto& [outputs, origins, expected, why] : rows)
        EXPECT_EQ(boxes(monitors(outputs, origins)), expected) << why;
}

class PlacesOfAPage : public testing::Test {
protected:
    WidgetSpec spec(const std::string& id) {
        return WidgetSpec({.id = id, .title = id, .kind = WidgetKind::note}, machine.platform);
    }
    std::string designs() {
        const auto places = readPlaces(machine.platform);
        std::string all;
        if (!places) return places.failure().reason;
        for (const Place& place : *places)
            all += text(place.design) + " " + std::to_string(static_cast<int>(place.place.margin.x)) + "; ";
        return all;
    }
    FakeMachine machine;
};

TEST_F(PlacesOfAPage, AreDrawnWhereTheDesktopPutsThem) {
    const std::vector<Monitor> screens{{"A", {{0, 0}, {1000, 400}}, true}, {"B", {{1000, 0}, {800, 600}}, false}};
    const std::vector<WidgetSpec> specs{spec("one"), spec("two")};
    const auto json = desktopJson(screens, {}, specs);
    EXPECT_NE(json.find(R"({"place":-1,"id":"one","x":806,"y":24,"width":170,"height":170})"), std::string::npos)
        << "without places it is the first design's card: " << json;

    std::vector<Place> places{
        {.design = std::string("two")}, {.design = DesignPosition{1}}, {.design = DesignPosition{9}}};
    places[1].family = WidgetFamily::systemMedium;
    places[1].place.output = {OutputChoice::Which::named, "B"};
    places[1].place.anchor = {0, 1};
    EXPECT_TRUE(
        desktopJson(screens, places, specs)
            .starts_with(R"({"monitors":[{"name":"A","isMain":true,"x":0,"y":0,"width":1000,"height":400,)"
                         R"("cards":[{"place":0,"id":"two","x":806,"y":24,"width":170,"height":170}]},)"
                         R"({"name":"B","isMain":false,"x":1000,"y":0,"width":800,"height":600,)"
                         R"("cards":[{"place":1,"id":"one","x":218,"y":406,"width":364,"height":170}]}],"places":[)"))
        << "a design that isn't stored has no card";
}

TEST_F(PlacesOfAPage, ChangeOneAtATime) {
    const auto put = [&](const std::string& json) { return putPlace(json, machine.platform); };
    ASSERT_TRUE(put(R"([{"design":"one"}])") && put(R"([{"design":"two"}])") && put(R"([{"design":"@1"}])"));
    ASSERT_TRUE(put(R"([{"design":"one","margin":[7,7],"click":"design"}])"));
    EXPECT_EQ(designs(), "one 7; two 24; @1 24; ") << "a design that has a place keeps its turn";

    for (const auto& [design, to, expected] : {std::tuple{"one", 1u, "two 24; one 7; @1 24; "},
                                               {"@1", 0u, "@1 24; two 24; one 7; "},
                                               {"@1", 99u, "two 24; one 7; @1 24; "}}) {
        EXPECT_TRUE(movePlace(design, to, machine.platform));
        EXPECT_EQ(designs(), expected);
    }
    EXPECT_TRUE(removePlace("one", machine.platform));
    EXPECT_EQ(designs(), "two 24; @1 24; ");

    for (const auto& refused :
         {removePlace("one", machine.platform), movePlace("one", 0, machine.platform), put("[]"),
          put(R"([{"design":"one","anchor":"middle"}])"), put(R"([{"design":"one"},{"design":"two"}])")})
        EXPECT_FALSE(refused);
    EXPECT_EQ(designs(), "two 24; @1 24; ") << "what is refused changes nothing";
}

}  // namespace
}  // namespace orvel::designer
