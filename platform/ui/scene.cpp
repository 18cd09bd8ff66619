#include "platform/ui/scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace orvel {
namespace {

std::optional<Color> containerBackground(const View& view) {
    return std::visit(
        []<class N>(const N& n) -> std::optional<Color> {
            if constexpr (std::is_same_v<N, node::Modified<node::ContainerBackground>>)
                return n.arguments.color;
            else if constexpr (requires { n.content.node(); })
                return containerBackground(n.content);
            else
                return std::nullopt;
        },
        view.node().alternatives());
}

Point turned(Point point, Point about, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    const double x = point.x - about.x;
    const double y = point.y - about.y;
    return {about.x + x * std::cos(radians) - y * std::sin(radians),
            about.y + x * std::sin(radians) + y * std::cos(radians)};
}

void turn(Mark& mark, Point about, double degrees) {
    const Point from = mark.frame.center();
    // A mark that turns about its own centre stays exactly where it is.
    if (from != about) {
        const Point to = turned(from, about, degrees);
        mark.frame.origin.x += to.x - from.x;
        mark.frame.origin.y += to.y - from.y;
        if (auto* text = std::get_if<TextMark>(&mark.content)) text->baseline += to.y - from.y;
    }
    if (auto* arc = std::get_if<ArcMark>(&mark.content))
        arc->startDegrees += degrees;
    else
        mark.rotationDegrees += degrees;
}

class SceneBuilder {
public:
    explicit SceneBuilder(const SymbolSet& symbols) : symbols_(symbols) {}

    void add(const Placed& placed, Point origin) {
        const std::size_t first = marks.size();
        std::visit([&](const auto& content) { add(content, Rect{origin, placed.size}); }, placed.content);
        for (const auto& [offset, part] : placed.parts) add(*part, {origin.x + offset.x, origin.y + offset.y});

        if (!placed.rotation) return;
        const UnitPoint anchor = placed.rotation->anchor;
        const Point about{origin.x + anchor.x * placed.size.width, origin.y + anchor.y * placed.size.height};
        std::for_each(marks.begin() + static_cast<std::ptrdiff_t>(first), marks.end(),
                      [&](Mark& mark) { turn(mark, about, placed.rotation->angle.degrees); });
    }

    std::vector<Mark> marks;

private:
    void add(std::monostate, Rect) {}

    void add(const PlacedText& text, Rect frame) {
        const FittedText& fitted = text.fitted;
        if (fitted.block.text.empty()) return;
        marks.push_back({frame, 0,
                         TextMark{.text = fitted.block.text,
                                  .font = {text.font.size * fitted.scale, text.font.weight},
                                  .color = text.color,
                                  .baseline = frame.origin.y + fitted.baseline,
                                  .lineHeight = fitted.lineHeight,
                                  .lines = fitted.block.lines,
                                  .scale = fitted.scale,
                                  .shaped = fitted.block.shaped}});
    }

    void add(const PlacedSymbol& symbol, Rect frame) {
        if (symbols_.contains(symbol.name)) marks.push_back({frame, 0, SymbolMark{symbol.name, symbol.color}});
    }

    void add(const PlacedCircle& circle, Rect box) {
        const double side = std::min(box.size.width, box.size.height);
        const Point center = box.center();
        const Rect frame{{center.x - side / 2, center.y - side / 2}, {side, side}};
        if (!circle.stroke) {
            marks.push_back({frame, 0, CircleMark{circle.color}});
            return;
        }
        // Not-a-number counts as 0.
        const double from = circle.trimFrom > 0 ? std::min(circle.trimFrom, 1.0) : 0;
        const double to = circle.trimTo > 0 ? std::min(circle.trimTo, 1.0) : 0;
        if (from < to) marks.push_back({frame, 0, ArcMark{from, to, 0, *circle.stroke, circle.color}});
    }

    const SymbolSet& symbols_;
};

}  // namespace

Scene makeScene(const View& view, Size container, double margin, const LayoutContext& context,
                const SymbolSet& symbols) {
    const Size content{std::max(container.width - 2 * margin, 0.0), std::max(container.height - 2 * margin, 0.0)};
    const auto placed = layOut(view, {content.width, content.height}, context);
    const Point centered = aligned(placed->size, content, Alignment::center);
    const Point origin{std::max(centered.x, 0.0), std::max(centered.y, 0.0)};

    SceneBuilder builder(symbols);
    builder.add(*placed, {margin + origin.x, margin + origin.y});
    return {container, containerBackground(view), std::move(builder.marks)};
}

}  // namespace orvel
