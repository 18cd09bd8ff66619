#include <gtest/gtest.h>

#include <set>

#include "desktop/placed_cards.h"
#include "desktop/places.h"
#include "model/widget_store.h"
#include "platform/ui/view_words.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

using test::FakeMachine;

constexpr const char* placesPath = "/home/ada/.config/orvel/places.json";

class DesktopOfCards : public testing::Test {
protected:
    WidgetSpec spec(std::string id, std::string title) {
        return WidgetSpec({.id = std::move(id), .title = std::move(title), .kind = WidgetKind::note, .primary = "x"},
                          machine.platform);
    }
    void write(std::string places) { machine.files.contents[placesPath] = std::move(places); }
    void put(const PlacedDesign& design) {
        (void)changePlaces(
            [&](std::vector<Place>& places) {
                places.push_back({.design = design});
                return Outcome<Done>(Done{});
            },
            machine.platform);
    }
    // The cards by their titles.
    static std::string shown(const PlacedCards& cards) {
        std::string titles;
        for (const CardOnShow& card : cards.cards()) titles += words(card.view, KeysThemselves()) + ";";
        return titles;
    }
    std::size_t reads(const std::string& path) const {
        return static_cast<std::size_t>(
            std::count(machine.files.calls.begin(), machine.files.calls.end(), "read " + path));
    }

    FakeMachine machine;
    std::vector<std::string> troubles;
    PlacedCards::Choices choices{.trouble = [this](const std::string& line) { troubles.push_back(line); }};
};

TEST_F(DesktopOfCards, ShowsThePlacedDesignsThatAreStored) {
    PlacedCards none(choices, machine.platform);
    EXPECT_EQ(shown(none), "Design one in Orvel;") << "the widget's card without a design";

    WidgetStore::save({spec("A", "first"), spec("B", "second")}, machine.platform);
    put(DesignPosition{1});
    put(std::string("B"));
    put(std::string("gone"));
    PlacedCards cards(choices, machine.platform);
    EXPECT_EQ(shown(cards), "x, FIRST;x, SECOND;");

    WidgetStore::save({spec("gone", "back"), spec("A", "first")}, machine.platform);
    cards.reload();
    EXPECT_EQ(shown(cards), "x, BACK;x, BACK;") << "a position is whoever is there, an id the same one";
    EXPECT_TRUE(troubles.empty());
}

TEST_F(DesktopOfCards, ReadsEachFileOncePerChangeAndKeepsTheOtherCardsApart) {
    std::vector<WidgetSpec> specs;
    for (int i = 0; i < 20; ++i) specs.push_back(spec(std::to_string(i), "title"));
    WidgetStore::save(specs, machine.platform);
    for (int i = 0; i < 20; ++i) put(std::to_string(i));
    put(std::string("7"));
    PlacedCards cards(choices, machine.platform);
    const auto keys = [&] {
        std::vector<std::string> all;
        for (const CardOnShow& card : cards.cards()) all.push_back(card.key);
        return all;
    };
    std::vector<std::string> before = keys();
    EXPECT_EQ(std::set(before.begin(), before.end()).size(), 21u) << "also of a design that has two places";

    specs.erase(specs.begin() + 3);
    WidgetStore::save(specs, machine.platform);
    machine.files.calls.clear();
    cards.reload();
    before.erase(before.begin() + 3);
    EXPECT_EQ(keys(), before) << "the cards behind the one that has left are the same as before";
    EXPECT_EQ(reads(std::string(FakeMachine::storeFolder) + "widgets.json"), 1u);
    EXPECT_EQ(reads(placesPath), 1u);
    machine.files.calls.clear();
    cards.look();
    EXPECT_TRUE(machine.files.calls.empty()) << "a minute that passes reads nothing";
}

TEST_F(DesktopOfCards, KeepsWhatItHasWhileAFileCantBeReadAndSaysWhyOnce) {
    WidgetStore::save({spec("A", "first")}, machine.platform);
    put(std::string("A"));
    PlacedCards cards(choices, machine.platform);
    machine.storedList() = "[{";
    write("[{\"design\":\"A\",\n\"anchor\":\"middle\"}]");
    for (int i = 0; i < 3; ++i) cards.reload();
    EXPECT_EQ(shown(cards), "x, FIRST;");
    ASSERT_EQ(troubles.size(), 2u);
    EXPECT_TRUE(troubles[0].starts_with(std::string(placesPath) + ":2:10: \"anchor\" must be top-left, "))
        << troubles[0];
}

TEST_F(DesktopOfCards, PlacesAreNeverReplacedUnseen) {
    const auto add = [](std::vector<Place>& places) {
        places.push_back({.design = std::string("A")});
        return Outcome<Done>(Done{});
    };
    write("[{\"design\":1}]");
    const auto refuse = [](std::vector<Place>&) { return Outcome<Done>(Failure{"no"}); };
    EXPECT_FALSE(changePlaces(refuse, machine.platform));
    EXPECT_EQ(machine.files.contents.size(), 1u) << "a change that isn't made leaves nothing";

    const auto notice = changePlaces(add, machine.platform);
    ASSERT_TRUE(notice);
    ASSERT_TRUE(*notice);
    EXPECT_NE((*notice)->find("places.json:1:12: \"design\" must be a text; kept as "), std::string::npos) << **notice;
    EXPECT_EQ(machine.files.contents.size(), 2u);
    EXPECT_EQ(readPlaces(machine.platform)->size(), 1u);

    const std::string before = machine.files.contents[placesPath];
    machine.files.fails = [](const std::string& call) { return call.starts_with("replace "); };
    EXPECT_FALSE(changePlaces(add, machine.platform));
    EXPECT_EQ(machine.files.contents[placesPath], before);
}

TEST_F(DesktopOfCards, PlacesReadBackAsTheyWereWritten) {
    const Place place{.design = std::string("id \"1\""),
                      .family = WidgetFamily::systemMedium,
                      .place = {.output = {OutputChoice::Which::named, "DP-1"},
                                .anchor = {0, 1},
                                .margin = {3, 4.5},
                                .layer = Layer::overlay},
                      .click = "https://example.org/"};
    const auto both = [&](std::vector<Place>& places) {
        places = {place, Place{.place = {.output = {OutputChoice::Which::all}}}};
        return Outcome<Done>(Done{});
    };
    ASSERT_TRUE(changePlaces(both, machine.platform));
    EXPECT_EQ(*readPlaces(machine.platform),
              (std::vector{place, Place{.place = {.output = {OutputChoice::Which::all}}}}));
    for (const char* const wrong :
         {"{}", "[1]", "[{}]", R"([{"design":""}])", R"([{"design":"A","margin":[1]}])",
          R"([{"design":"A","margin":[-1,2]}])", R"([{"design":"A","family":null}])", "[{\"design\":\"A\"},]"}) {
        write(wrong);
        EXPECT_FALSE(readPlaces(machine.platform)) << wrong;
    }
}

}  // namespace
}  // namespace orvel
