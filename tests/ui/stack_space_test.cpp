#include "platform/ui/stack_space.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/ui/geometry.h"

namespace orvel {
namespace {

// A child takes what it is offered, within its bounds; asked for its ideal, the least.
std::vector<double> share(std::optional<double> available, const std::vector<StackChild>& children) {
    return shareSpace(available, children, [&](std::size_t i, std::optional<double> offer) {
        return std::clamp(offer.value_or(0), children[i].minimum, children[i].maximum);
    });
}

TEST(StackSpace, ServesPrioritiesAndTheLeastFlexibleFirst) {
    constexpr StackChild rigid20{0, 20, 20};
    constexpr StackChild flexible{0, 0, infinity};
    constexpr StackChild spacer{-infinity, 0, infinity};
    constexpr StackChild spacer8{-infinity, 8, infinity};
    const struct {
        const char* why;
        std::optional<double> available;
        std::vector<StackChild> children;
        std::vector<double> lengths;
    } cases[] = {
        {"nothing to share among none", 100, {}, {}},
        {"equals share", 90, {flexible, flexible, flexible}, {30, 30, 30}},
        {"what a rigid one leaves is shared", 100, {flexible, rigid20, flexible}, {40, 20, 40}},
        {"the less flexible chooses first and leaves the rest", 100, {flexible, {0, 10, 30}}, {70, 30}},
        {"bounds may overflow", 150, {{0, 0, 100}, {0, 100, infinity}}, {75, 100}},
        {"a spacer gets only what the others leave", 100, {spacer, {0, 0, 80}}, {20, 80}},
        {"texts are not cut to a share with spacers", 100, {spacer, {0, 0, 100}, spacer}, {0, 100, 0}},
        {"a spacer's minimum is reserved", 100, {spacer8, {0, 0, 100}}, {8, 92}},
        {"spacers share equally", 100, {rigid20, spacer, spacer, rigid20}, {20, 30, 30, 20}},
        {"minima 8 and 0: the first takes half", 30, {spacer8, spacer}, {15, 15}},
        {"minima 8 and 0, little left", 10, {spacer8, spacer}, {8, 2}},
        {"minima 8 and 0, nothing left", 0, {spacer8, spacer}, {8, 0}},
        {"higher priority first, less the minima below", 100, {{0, 10, 100}, {1, 0, infinity}}, {10, 90}},
        {"too little for the rigid", 30, {rigid20, rigid20, spacer}, {20, 20, 0}},
        {"ideal lengths", std::nullopt, {rigid20, flexible, spacer8}, {20, 0, 8}},
        {"without end", infinity, {rigid20, {0, 0, 50}}, {20, 50}},
        {"without end, for all of them", infinity, {flexible, flexible, spacer}, {infinity, infinity, infinity}},
        {"endless at any offer is rigid", 100, {{0, 0, 30}, {0, infinity, infinity}}, {0, infinity}},
    };
    for (const auto& c : cases) EXPECT_EQ(share(c.available, c.children), c.lengths) << c.why;
}

}  // namespace
}  // namespace orvel
