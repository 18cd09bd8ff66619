#include "platform/symbols/composition.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/symbols/clearing.h"
#include "platform/symbols/path_data.h"
#include "platform/symbols/symbols.h"

namespace orvel {
namespace {

int windingsOf(const SymbolOutline& outline, Point point) {
    int sum = 0;
    for (const Contour& part : contours(outline)) sum += windings(flattened(part), point);
    return sum;
}

bool isFilled(const SymbolOutline& outline, Point point) {
    return windingsOf(outline, point) != 0;
}

// Whether the point lies in it, and far enough from its border to be sure.
bool isClearlyIn(const Polygon& area, Point point) {
    for (const Point& near : {Point{-1, 0}, Point{1, 0}, Point{0, -1}, Point{0, 1}})
        if (windings(area, {point.x + near.x * 1e-3, point.y + near.y * 1e-3}) == 0) return false;
    return true;
}

TEST(Clearing, EmptiesTheAreaAndNothingElse) {
    const Symbols symbols;
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-0.1, 1.1), size(0.1, 1.2);
    // Areas with holes, areas apart, lines, curves; in front of each a shape that may lie beside, across or all over
    // it.
    for (const char* name : {"calendar", "gear", "globe", "pawprint.fill", "circle.fill", "at", "qrcode", "scribble"}) {
        const SymbolOutline before = running(*symbols.outline(name), Turn::clockwise);
        for (const char* front : {"plus", "circle.fill", "pencil"})
            for (int i = 0; i < 12; ++i) {
                SymbolOutline shape = *symbols.outline(front);
                const Point shift{anywhere(random) - 0.5, anywhere(random) - 0.5};
                const double scale = size(random);
                for (auto& segment : shape.segments)
                    for (Point& p : segment.points) p = {p.x * scale + shift.x, p.y * scale + shift.y};
                const Polygon area = areaAround(shape, 0.05);
                const SymbolOutline after = cleared(before, area);
                for (int j = 0; j < 60; ++j) {
                    const Point point{anywhere(random), anywhere(random)};
                    const bool isIn = windings(area, point) != 0;
                    if (isIn && !isClearlyIn(area, point)) continue;
                    ASSERT_EQ(windingsOf(after, point), isIn ? 0 : windingsOf(before, point))
                        << name << " behind " << front << ", " << i << ": " << point.x << ' ' << point.y;
                }
            }
    }
}

TEST(Clearing, KeepsAGapAroundWhatStandsInFront) {
    const Polygon area = areaAround(outlineOfPathData("M 40 40 L 60 40 L 60 60 L 40 60 Z"), 0.1);
    for (const Point in : {Point{0.5, 0.5}, Point{0.31, 0.5}, Point{0.5, 0.69}, Point{0.34, 0.34}})
        EXPECT_EQ(windings(area, in), 1) << in.x << ' ' << in.y;
    for (const Point out : {Point{0.29, 0.5}, Point{0.5, 0.71}, Point{0.32, 0.32}})
        EXPECT_EQ(windings(area, out), 0) << out.x << ' ' << out.y;
    EXPECT_TRUE(areaAround({}, 0.1).empty());
}

TEST(Composition, PutsPartsWhereTheTextSays) {
    // Two squares, one of them turning the other way; a frame whose hole turns like its outside; a strip at the left.
    const Parts parts = [](std::string_view name) -> std::optional<SymbolOutline> {
        if (name == "square") return outlineOfPathData("M 20 20 L 80 20 L 80 80 L 20 80 Z");
        if (name == "dot") return outlineOfPathData("M 30 30 L 30 70 L 70 70 L 70 30 Z");
        if (name == "frame")
            return outlineOfPathData("M 0 0 L 100 0 L 100 100 L 0 100 Z M 20 20 L 80 20 L 80 80 L 20 80 Z");
        if (name == "frame.fill") return outlineOfPathData("M 0 0 L 100 0 L 100 100 L 0 100 Z");
        if (name == "dot.fill") return outlineOfPathData("M 10 10 L 90 10 L 90 90 L 10 90 Z");
        if (name == "strip") return outlineOfPathData("M 0 0 L 10 0 L 10 100 L 0 100 Z");
        return std::nullopt;
    };
    using enum SymbolWeight;
    const struct {
        const char* text;
        SymbolWeight weight;
        Point point;
        bool filled;
    } cases[] = {
        {"frame", outlined, {0.5, 0.5}, false},
        {"frame", outlined, {0.1, 0.5}, true},
        {"frame * dot", outlined, {0.5, 0.5}, true},  // drawn in the line
        {"frame * dot", outlined, {0.25, 0.5}, false},
        {"frame * dot", filled, {0.5, 0.5}, false},  // cut out of the area, and not the larger filled one
        {"frame * dot", filled, {0.3, 0.5}, true},
        {"square + dot", outlined, {0.3, 0.3}, true},
        {"square + dot", outlined, {0.76, 0.76}, true},   // a badge
        {"square + dot", outlined, {0.64, 0.64}, false},  // the space around it
        {"square + dot@30,30,50", outlined, {0.3, 0.3}, true},
        {"square + dot@30,30,50", outlined, {0.43, 0.3}, false},
        {"frame + dot", filled, {0.60, 0.60}, true},  // the badge is the filled one
        {"square | dot@50,50,50", outlined, {0.5, 0.5}, true},
        {"square | strip", outlined, {0.05, 0.5}, true},
        {"square - dot", outlined, {0.5, 0.5}, false},
        {"square - dot", outlined, {0.25, 0.25}, true},
        {"strip@50,50,-100", outlined, {0.95, 0.5}, true},    // mirrored
        {"strip@50,50,100,90", outlined, {0.5, 0.05}, true},  // turned clockwise
        {"strip@50,50,100,-90", outlined, {0.5, 0.95}, true},
    };
    for (const auto& [text, weight, point, expected] : cases) {
        const auto made = composed(text, weight, parts);
        ASSERT_TRUE(made) << text;
        EXPECT_EQ(isFilled(*made, point), expected) << text << " at " << point.x << ' ' << point.y;
    }
    for (const char* text : {"", "none", "square + none", "square +"})
        EXPECT_FALSE(composed(text, outlined, parts)) << text;
    EXPECT_FALSE(composed("square * dot", filled, parts)) << "the first part has no filled one";
}

}  // namespace
}  // namespace orvel
