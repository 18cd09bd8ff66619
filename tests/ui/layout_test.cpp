#include "platform/ui/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/ui/scene.h"

namespace orvel {
namespace {

using H = HorizontalAlignment;
using V = VerticalAlignment;

// Every character of a text is half as wide as the font's size, a line as high as it, and lines break anywhere.
class FixedTextEngine final : public TextEngine {
public:
    FontMetrics metrics(const Font& font) override { return {font.size * 0.75, font.size * 0.25}; }

    TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) override {
        ++calls;
        if (text.empty()) return {.lines = 1};
        const double advance = font.size / 2;
        const double perLine =
            width ? std::max(1.0, std::floor(*width / advance + 1e-9)) : static_cast<double>(text.size());
        const double length = static_cast<double>(text.size());
        TextBlock block;
        block.lines = std::min(mostLines, static_cast<int>(std::ceil(length / perLine)));
        block.cut = length > block.lines * perLine;
        block.text = block.cut ? std::string(text.substr(0, static_cast<std::size_t>(block.lines * perLine) - 1)) + "…"
                               : std::string(text);
        block.width = std::min(length, perLine) * advance;
        return block;
    }

    int calls = 0;
};

struct OneSymbol final : SymbolSet {
    const SymbolOutline* outline(std::string_view name) const override { return name == "known" ? &shape : nullptr; }
    SymbolOutline shape;
};

struct Bench {
    FixedTextEngine text;
    KeysThemselves localizer;
    LayoutContext context{text, localizer};

    Size fit(const View& view, ProposedSize proposal) { return layOut(view, proposal, context)->size; }
    Scene scene(const View& view, Size size, double margin = 0) {
        return makeScene(view, size, margin, context, OneSymbol());
    }
};

View box(double width, double height) {
    return Circle().fill(Color{}).frame(FixedFrame{.width = width, .height = height});
}

const FlexibleFrame filling{.maxWidth = infinity, .maxHeight = infinity, .alignment = Alignment::topLeading};

TEST(Frames, ProposeAndReport) {
    const View text = Text("ten chars ").font(Font::system(10));  // 50 x 10
    const struct {
        const char* why;
        View view;
        ProposedSize proposal;
        Size size;
    } cases[] = {
        {"fixed, whatever is offered", text.frame(FixedFrame{.width = 20, .height = 30}), {200, 200}, {20, 30}},
        {"fixed on one side", text.frame(FixedFrame{.height = 30}), {200, 200}, {50, 30}},
        {"a maximum takes the offer up to it", text.frame(FlexibleFrame{.maxWidth = 80}), {200, 200}, {80, 10}},
        {"a maximum yields to a larger child", text.frame(FlexibleFrame{.maxWidth = infinity}), {10, 10}, {10, 10}},
        {"infinite maxima fill", text.frame(filling), {200, 90}, {200, 90}},
        {"no offer: the child's size", text.frame(FlexibleFrame{.maxWidth = infinity}), {}, {50, 10}},
        {"a minimum holds", text.frame(FlexibleFrame{.minWidth = 70, .minHeight = 5}), {60, 60}, {70, 10}},
        {"a maximum holds against a larger child",
         box(50, 10).frame(FlexibleFrame{.maxWidth = 20}),
         {200, 60},
         {20, 10}},
        {"both clamp the offer", text.frame(FlexibleFrame{.minWidth = 70, .maxWidth = 90}), {200, 60}, {90, 10}},
        {"an ideal answers no offer", text.frame(FlexibleFrame{.idealWidth = 60, .maxWidth = 90}), {}, {60, 10}},
        {"a shape takes the offer", Circle().fill(Color{}), {30, 40}, {30, 40}},
        {"a shape without an offer", Circle().fill(Color{}), {}, {10, 10}},
        {"a symbol is as high as a line", Image::systemName("known").font(Font::system(20)), {1, 1}, {20, 20}},
        {"a spacer outside a stack", Spacer(), {30, std::nullopt}, {30, 8}},
        {"a spacer offered less than its minimum", Spacer(12), {3, 20}, {12, 20}},
        {"nor does a row reach into what lies over one another", HStack()({ZStack()({Spacer()})}), {30, 40}, {30, 40}},
        {"a row's spacer has no height", HStack()({Spacer()}), {30, 40}, {30, 0}},
    };
    Bench bench;
    for (const auto& c : cases) EXPECT_EQ(bench.fit(c.view, c.proposal), c.size) << c.why;
}

TEST(Stacks, PlaceTheirChildren) {
    Bench bench;
    const View column = VStack(H::leading, 0)({box(10, 10), Spacer(0), box(30, 10)});
    const Scene scene = bench.scene(column.frame(filling), {100, 60}, 5);
    ASSERT_EQ(scene.marks.size(), 2u);
    EXPECT_EQ(scene.marks[0].frame, (Rect{{5, 5}, {10, 10}}));
    EXPECT_EQ(scene.marks[1].frame, (Rect{{15, 45}, {10, 10}})) << "a circle is inscribed and centred";

    const std::optional<View> absent;
    const std::vector<View> listed{box(5, 5), box(5, 5)};
    const struct {
        const char* why;
        View view;
        Size size;
    } cases[] = {
        {"explicit gaps", HStack(V::center, 3)({box(10, 10), box(10, 20), box(10, 5)}), {36, 20}},
        {"default gaps", HStack()({box(10, 10), box(10, 10)}), {28, 10}},
        {"none beside a spacer, which has a default length", HStack()({box(10, 10), Spacer(), box(10, 10)}), {28, 10}},
        {"empty", VStack()({}), {0, 0}},
        {"absent and listed children", VStack(H::center, 1)({absent, listed}), {5, 11}},
        {"over one another", ZStack()({box(10, 30), box(20, 10)}), {20, 30}},
    };
    for (const auto& c : cases) EXPECT_EQ(bench.fit(c.view, {}), c.size) << c.why;

    const Scene over = bench.scene(ZStack({H::trailing, V::bottom})({box(10, 10), box(4, 4)}), {10, 10});
    EXPECT_EQ(over.marks[1].frame, (Rect{{6, 6}, {4, 4}}));
    for (const auto& [alignment, y] : {std::pair(V::top, 0.0), {V::center, 3.0}, {V::bottom, 6.0}})
        EXPECT_EQ(bench.scene(HStack(alignment, 0)({box(4, 10), box(4, 4)}), {8, 10}).marks[1].frame.origin,
                  (Point{4, y}));
    const Scene large = bench.scene(box(50, 50), {30, 60});
    EXPECT_EQ(large.marks[0].frame, (Rect{{0, 5}, {50, 50}})) << "the beginning of what is too large shows";
}

TEST(Stacks, AColumnKeepsWholeWhatFitsAtEveryHeight) {
    Bench bench;
    // A value card's column, in fonts whose lines are 34, 10 and 11 points high; at 138 points 27 characters to a line.
    const View headline = Text("42").font(Font::system(34)).lineLimit(1).minimumScaleFactor(0.5);
    const View caption = Text(std::string(27 * 12, 'x')).font(Font::system(10));
    const View secondary = Text("secondary").font(Font::system(11)).lineLimit(1);
    const View card = VStack(H::leading, 0)({box(16, 16), Spacer(0), headline, caption, secondary}).frame(filling);
    for (const double height : {0.0, 20.0, 61.0, 71.0, 100.0, 138.0, 200.0, 1000.0}) {
        const Scene scene = bench.scene(card, {138, height});
        double bottom = -infinity;
        for (const Mark& mark : scene.marks) {
            EXPECT_GE(mark.frame.origin.y, bottom - 1e-9) << "overlap at height " << height;
            bottom = mark.frame.origin.y + mark.frame.size.height;
        }
        // The rigid lines take 27; the headline is offered half of the rest, the caption what it leaves.
        const double headlineHeight = std::clamp((height - 27) / 2, 17.0, 34.0);
        const int captionLines = std::clamp(static_cast<int>((height - 27 - headlineHeight) / 10), 1, 12);
        EXPECT_NEAR(scene.marks[1].frame.size.height, headlineHeight, 1e-9) << height;
        EXPECT_EQ(std::get<TextMark>(scene.marks[2].content).lines, captionLines) << height;
        if (height >= 54) {
            EXPECT_LE(bottom - scene.marks[0].frame.origin.y, height) << height;
        }
    }
}

TEST(Stacks, CostInProportionToTheirTextsHoweverDeepTheyAre) {
    Bench bench;
    constexpr int depth = 12;
    View tree = Text("the innermost");
    for (int i = 0; i < depth; ++i) {
        const View beside = Text("beside it " + std::to_string(i));
        tree = i % 2 ? VStack()({beside, tree}) : HStack()({beside, tree});
    }
    bench.scene(tree, {300, 300});
    EXPECT_LE(bench.text.calls, depth * 24) << "three offers at each level would be three to the power of twelve";
}

TEST(Styles, AreInherited) {
    Bench bench;
    const Color red{1, 0, 0, 1};
    const auto color = [&](const View& view) {
        return hexText(std::get<TextMark>(bench.scene(view, {100, 100}).marks.at(0).content).color);
    };
    EXPECT_EQ(color(Text("x")), "#FFFFFFD9");
    EXPECT_EQ(color(Text("x").foregroundStyle(HierarchicalShapeStyle::secondary)), "#FFFFFF8C");
    EXPECT_EQ(color(Text("x").foregroundStyle(HierarchicalShapeStyle::quaternary)), "#FFFFFF1A");
    EXPECT_EQ(color(VStack()({Text("x")}).foregroundStyle(red)), "#FF0000FF");
    EXPECT_EQ(color(Text("x").foregroundStyle(HierarchicalShapeStyle::secondary).foregroundStyle(red)), "#FF0000A5")
        << "a level of the colour around it";
    EXPECT_EQ(color(Text("x").foregroundStyle(red).foregroundStyle(HierarchicalShapeStyle::secondary)), "#FF0000FF")
        << "a colour, whatever the level around it";
    EXPECT_EQ(bench.fit(VStack()({Text("xx")}).font(Font::system(20)), {}), (Size{20, 20}));
    EXPECT_EQ(bench.fit(Text("xx"), {}), (Size{13, 13})) << "body where nothing is set";
}

TEST(Scene, ListsOnlyWhatIsDrawn) {
    Bench bench;
    const auto arc = [](double from, double to) { return Circle().trim(from, to).stroke(Color{}, {.lineWidth = 2}); };
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    for (const View& nothing :
         {Text(""), Image::systemName("unknown"), arc(0, 0), arc(0, -1), arc(0, nan), arc(0.5, 0.2)})
        EXPECT_TRUE(bench.scene(nothing, {10, 10}).marks.empty());

    const auto drawn = [&](const View& view) {
        return std::get<ArcMark>(bench.scene(view, {10, 10}).marks.at(0).content);
    };
    EXPECT_EQ(drawn(arc(0, 1.7)).to, 1);
    EXPECT_EQ(drawn(arc(-3, 0.5)).from, 0);
    EXPECT_EQ(drawn(arc(0, 0.5).rotationEffect({-90})).startDegrees, -90);
    EXPECT_FALSE(bench.scene(Text("x"), {10, 10}).background);
    EXPECT_EQ(bench.scene(Text("x").containerBackground(Color{1, 0, 0}, ContainerBackgroundPlacement::widget), {10, 10})
                  .background,
              (Color{1, 0, 0}));
}

TEST(Scene, TurnsMarksAboutAnyPoint) {
    Bench bench;
    const View turned = HStack(V::top, 0)({box(10, 10), Text("x").font(Font::system(10))}).rotationEffect({90}, {0, 0});
    const Scene scene = bench.scene(
        turned.frame(FixedFrame{.width = 100, .height = 100, .alignment = Alignment::topLeading}), {100, 100});
    EXPECT_NEAR(scene.marks[0].frame.origin.x, -10, 1e-9);
    EXPECT_NEAR(scene.marks[0].frame.origin.y, 0, 1e-9);
    // The text's centre was at (12.5, 5).
    EXPECT_NEAR(scene.marks[1].frame.center().x, -5, 1e-9);
    EXPECT_NEAR(scene.marks[1].frame.center().y, 12.5, 1e-9);
    EXPECT_NEAR(std::get<TextMark>(scene.marks[1].content).baseline, 15, 1e-9) << "it moves with the centre";
    EXPECT_EQ(scene.marks[1].rotationDegrees, 90);
}

TEST(TextFit, ScalesBeforeItCuts) {
    FixedTextEngine engine;
    const TextStyle headline{Font::system(34), 1, 0.5};
    const std::string ten(10, 'x');  // 170 points wide at full size
    const struct {
        const char* why;
        TextStyle style;
        ProposedSize proposal;
        double scale;
        Size size;
        bool cut;
    } cases[] = {
        {"fits", headline, {200, 100}, 1, {170, 34}, false},
        {"as narrow as the offer", headline, {136, 100}, 0.8, {136, 27.2}, false},
        {"half, and no further", headline, {84, 100}, 0.5, {76.5, 17}, true},
        {"too low, too", headline, {200, 25.5}, 0.75, {127.5, 25.5}, false},
        {"one line is always kept", headline, {200, 0}, 0.5, {85, 17}, false},
        {"ideal", headline, {}, 1, {170, 34}, false},
        {"may not scale", {Font::system(34), 1, 1}, {136, 100}, 1, {136, 34}, true},
        {"wraps", {Font::system(34), {}, 1}, {100, 100}, 1, {85, 68}, false},
        {"wraps within the limit only", {Font::system(34), 1, 1}, {100, 100}, 1, {85, 34}, true},
        {"keeps as many lines as fit", {Font::system(34), {}, 1}, {51, 80}, 1, {51, 68}, true},
        {"a limit below one is one", {Font::system(34), -3, 1}, {100, 100}, 1, {85, 34}, true},
        {"several lines scale until all fit", {Font::system(34), 2, 0.5}, {68, 200}, 0.8, {68, 54.4}, false},
    };
    for (const auto& c : cases) {
        const FittedText fitted = fitText(ten, c.style, c.proposal, engine);
        EXPECT_NEAR(fitted.scale, c.scale, 1e-3) << c.why;
        EXPECT_NEAR(fitted.size.width, c.size.width, 0.1) << c.why;
        EXPECT_NEAR(fitted.size.height, c.size.height, 0.1) << c.why;
        EXPECT_EQ(fitted.block.cut, c.cut) << c.why;
    }
    EXPECT_EQ(fitText("", headline, {100, 100}, engine).size, (Size{0, 34})) << "an empty line";
}

TEST(Localized, PutsIntegersIntoTheTranslation) {
    struct Table final : Localizer {
        explicit Table(const char* translation) : text(translation) {}
        std::string lookUp(std::string_view) const override { return text; }
        std::string text;
    };
    const auto percent = LocalizedStringKey::interpolation().integer(38).literal("%");
    EXPECT_EQ(percent.key, "%lld%%");
    EXPECT_EQ(localized(percent, KeysThemselves()), "38%");
    const auto two = LocalizedStringKey::interpolation().integer(1).literal(" of ").integer(-2);
    const std::pair<const char*, const char*> cases[] = {
        {"%lld von %lld", "1 von -2"},          {"%2$lld/%1$lld", "-2/1"},
        {"%lld %lld %lld", "1 -2 %lld"},        {"%s %n %d %lld", "%s %n %d 1"},
        {"%9$lld %0$lld %", "%9$lld %0$lld %"}, {"", ""},
    };
    for (const auto& [translation, text] : cases) EXPECT_EQ(localized(two, Table(translation)), text);
    EXPECT_EQ(localized(LocalizedStringKey("100% %lld"), KeysThemselves()), "100% %lld") << "a literal stands as it is";
}

}  // namespace
}  // namespace orvel
