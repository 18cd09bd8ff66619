#include <gtest/gtest.h>

#include "platform/host/arrangement.h"

namespace orvel {
namespace {

using Which = OutputChoice::Which;

constexpr Size small{170, 170};
constexpr Size medium{364, 170};

Output output(std::string name, double roomHeight = 600, bool primary = false) {
    return {.name = std::move(name), .primary = primary, .roomWidth = 1000, .roomHeight = roomHeight};
}

// As "output anchor margin", which is what a surface needs.
std::string shown(const ArrangedCard& card) {
    const Placement& place = card.placement;
    const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
    return std::to_string(card.card) + " " + place.output.value_or("any") + " " + number(place.anchor.horizontal) +
           "," + number(place.anchor.vertical) + " " + number(place.margin.x) + "," + number(place.margin.y);
}

TEST(Arrangement, CardsOfOnePlaceShareColumnsAndOthersDont) {
    const std::vector<Output> two{output("A"), output("B", 600, true)};
    const CardPlace corner{.output = {Which::primary}};
    const auto at = [&](Anchor anchor) { return CardPlace{.output = {Which::primary}, .anchor = anchor}; };
    const auto on = [&](OutputChoice choice) { return CardPlace{.output = std::move(choice)}; };
    const struct {
        const char* why;
        std::vector<CardToArrange> cards;
        std::vector<Output> outputs;
        std::vector<std::string> expected;
    } cases[] = {
        {"one is where it was asked to be", {{small, corner}}, two, {"0 B 1,-1 24,24"}},
        {"a column grows from its edge",
         {{small, corner}, {medium, corner}},
         two,
         {"0 B 1,-1 24,24", "1 B 1,-1 24,210"}},
        {"upwards from the lower edge",
         {{small, at({-1, 1})}, {small, at({-1, 1})}},
         two,
         {"0 B -1,1 24,24", "1 B -1,1 24,210"}},
        {"about the middle", {{small, at({1, 0})}, {small, at({1, 0})}}, two, {"0 B 1,-1 24,122", "1 B 1,-1 24,308"}},
        {"the fourth doesn't fit, the widest makes room",
         {{small, corner}, {medium, corner}, {small, corner}, {small, corner}},
         two,
         {"0 B 1,-1 24,24", "1 B 1,-1 24,210", "2 B 1,-1 24,396", "3 B 1,-1 404,24"}},
        {"columns about the middle",
         {{small, at({0, -1})}, {small, at({0, -1})}, {small, at({0, -1})}, {small, at({0, -1})}},
         two,
         {"0 B -1,-1 322,24", "1 B -1,-1 322,210", "2 B -1,-1 322,396", "3 B -1,-1 508,24"}},
        {"one column while the room isn't known",
         {{small, corner}, {small, corner}, {small, corner}, {small, corner}},
         {output("B", 0)},
         {"0 B 1,-1 24,24", "1 B 1,-1 24,210", "2 B 1,-1 24,396", "3 B 1,-1 24,582"}},
        {"one at least in each, however low",
         {{small, corner}, {small, corner}},
         {output("B", 50)},
         {"0 B 1,-1 24,24", "1 B 1,-1 210,24"}},
        {"other edges and margins are other places",
         {{small, corner}, {small, at({-1, -1})}, {small, {.output = {Which::primary}, .margin = {24, 40}}}},
         two,
         {"0 B 1,-1 24,24", "1 B -1,-1 24,24", "2 B 1,-1 24,40"}},
        {"named, main and all are the same place on one monitor",
         {{small, corner}, {small, on({Which::named, "B"})}, {small, on({Which::all})}},
         two,
         {"0 B 1,-1 24,24", "1 B 1,-1 24,210", "2 A 1,-1 24,24", "2 B 1,-1 24,396"}},
        {"a missing monitor's card waits, the main one is the first where none is called so",
         {{small, on({Which::named, "C"})}, {small, corner}, {small, on({Which::any})}},
         {output("A")},
         {"0 C 1,-1 24,24", "1 A 1,-1 24,24", "2 any 1,-1 24,24"}},
        {"nothing without monitors", {{small, corner}, {small, on({Which::all})}}, {}, {}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> got;
        for (const ArrangedCard& card : arrange(c.cards, c.outputs)) got.push_back(shown(card));
        EXPECT_EQ(got, c.expected) << c.why;
    }
}

}  // namespace
}  // namespace orvel
