#include "platform/ui/layout.h"

#include <algorithm>
#include <cmath>

#include "platform/ui/stack_space.h"

namespace orvel {
namespace {

enum class Axis { horizontal, vertical };

// What a view inherits from the modifiers around it.
struct Environment {
    TextStyle text;
    std::optional<Color> foreground;  // absent: the default style
    HierarchicalShapeStyle level = HierarchicalShapeStyle::primary;
    std::optional<Axis> stackAxis;
};

Color resolved(const ShapeStyle& style, const Environment& environment) {
    if (const auto* color = std::get_if<Color>(&style)) return *color;
    const auto level = std::get<HierarchicalShapeStyle>(style);
    if (!environment.foreground) return Color{1, 1, 1, 1}.withOpacity(opacity(level));
    // A level of a colour is weaker in the same proportion as that level of the default style.
    return environment.foreground->withOpacity(opacity(level) / opacity(HierarchicalShapeStyle::primary));
}

Color foregroundColor(const Environment& environment) {
    return resolved(environment.level, environment);
}

double length(Size size, Axis axis) {
    return axis == Axis::horizontal ? size.width : size.height;
}

Size sized(double along, double across, Axis axis) {
    return axis == Axis::horizontal ? Size{along, across} : Size{across, along};
}

std::optional<double> length(const ProposedSize& proposal, Axis axis) {
    return axis == Axis::horizontal ? proposal.width : proposal.height;
}

ProposedSize offering(std::optional<double> along, const ProposedSize& proposal, Axis axis) {
    return axis == Axis::horizontal ? ProposedSize{along, proposal.height} : ProposedSize{proposal.width, along};
}

// Spacers are recognised through the modifiers that leave the layout alone.
bool isSpacer(const View& view) {
    return std::visit(
        []<class N>(const N& n) {
            if constexpr (std::is_same_v<N, node::Spacer>)
                return true;
            else if constexpr (std::is_same_v<N, node::Modified<Font>> ||
                               std::is_same_v<N, node::Modified<ShapeStyle>> ||
                               std::is_same_v<N, node::Modified<node::Identity>>)
                return isSpacer(n.content);
            else
                return false;
        },
        view.node().alternatives());
}

double gapBetween(const View& first, const View& second, std::optional<double> spacing) {
    if (spacing) return *spacing;
    return isSpacer(first) || isSpacer(second) ? 0 : defaultSpacing;
}

// One side of a flexible frame.
struct FlexibleLength {
    std::optional<double> minimum;
    std::optional<double> ideal;
    std::optional<double> maximum;

    std::optional<double> offered(std::optional<double> proposal) const {
        const auto wanted = proposal ? proposal : ideal;
        if (!wanted) return std::nullopt;
        return limited(*wanted);
    }
    double chosen(std::optional<double> proposal, double content) const {
        const double wanted = proposal ? *proposal : ideal.value_or(content);
        if (minimum && maximum) return limited(wanted);
        if (maximum) return std::min(std::max(wanted, content), *maximum);
        if (minimum) return std::max(std::min(wanted, content), *minimum);
        return content;
    }

private:
    double limited(double wanted) const {
        if (maximum) wanted = std::min(wanted, *maximum);
        if (minimum) wanted = std::max(wanted, *minimum);
        return wanted;
    }
};

class Layout {
public:
    explicit Layout(const LayoutContext& context) : context_(context) {}

    Placed arrange(const View& view, const ProposedSize& proposal, const Environment& environment) const {
        return std::visit([&](const auto& n) { return arrange(n, proposal, environment); }, view.node().alternatives());
    }

private:
    Placed arrange(const node::Text& text, const ProposedSize& proposal, const Environment& environment) const {
        if (const auto* verbatim = std::get_if<std::string>(&text.content))
            return arrange(*verbatim, proposal, environment);
        return arrange(localized(std::get<LocalizedStringKey>(text.content), context_.localizer), proposal,
                       environment);
    }

    Placed arrange(const std::string& text, const ProposedSize& proposal, const Environment& environment) const {
        PlacedText placed{fitText(text, environment.text, proposal, context_.text), environment.text.font,
                          foregroundColor(environment)};
        const Size size = placed.fitted.size;
        return leaf(size, std::move(placed));
    }

    // A symbol's box is a square as high as a line of its font.
    Placed arrange(const node::Image& image, const ProposedSize&, const Environment& environment) const {
        const FontMetrics metrics = context_.text.metrics(environment.text.font);
        const double side = std::ceil(metrics.ascent + metrics.descent);
        return leaf({side, side}, PlacedSymbol{image.systemName, foregroundColor(environment)});
    }

    Placed arrange(const node::Spacer& spacer, const ProposedSize& proposal, const Environment& environment) const {
        const double least = spacer.minLength.value_or(defaultSpacerLength);
        const auto along = [&](Axis axis) { return std::max(length(proposal, axis).value_or(least), least); };
        if (!environment.stackAxis) return leaf({along(Axis::horizontal), along(Axis::vertical)}, {});
        return leaf(sized(along(*environment.stackAxis), 0, *environment.stackAxis), {});
    }

    Placed arrange(const node::Circle& circle, const ProposedSize& proposal, const Environment& environment) const {
        return leaf({proposal.width.value_or(defaultShapeLength), proposal.height.value_or(defaultShapeLength)},
                    PlacedCircle{circle.trimFrom, circle.trimTo, circle.stroke, resolved(circle.style, environment)});
    }

    Placed arrange(const node::VStack& stack, const ProposedSize& proposal, const Environment& environment) const {
        const auto offset = [&](Size child, Size size) {
            return aligned(child, size, {stack.alignment, VerticalAlignment::top}).x;
        };
        return arrangeStack(stack.children, Axis::vertical, stack.spacing, proposal, environment, offset);
    }

    Placed arrange(const node::HStack& stack, const ProposedSize& proposal, const Environment& environment) const {
        const auto offset = [&](Size child, Size size) {
            return aligned(child, size, {HorizontalAlignment::leading, stack.alignment}).y;
        };
        return arrangeStack(stack.children, Axis::horizontal, stack.spacing, proposal, environment, offset);
    }

    Placed arrange(const node::ZStack& stack, const ProposedSize& proposal, const Environment& environment) const {
        Environment inner = environment;
        inner.stackAxis.reset();
        Placed placed;
        for (const View& child : stack.children) {
            const Size size = placed.parts.emplace_back(arrange(child, proposal, inner)).size;
            placed.size = {std::max(placed.size.width, size.width), std::max(placed.size.height, size.height)};
        }
        for (Placed& part : placed.parts) part.origin = aligned(part.size, placed.size, stack.alignment);
        return placed;
    }

    Placed arrange(const node::Modified<FixedFrame>& frame, const ProposedSize& proposal,
                   const Environment& environment) const {
        const auto& [width, height, alignment] = frame.arguments;
        const ProposedSize offer{width ? width : proposal.width, height ? height : proposal.height};
        Placed content = arrangeOutsideStack(frame.content, offer, environment);
        const Size size{width.value_or(content.size.width), height.value_or(content.size.height)};
        return framed(std::move(content), size, alignment);
    }

    Placed arrange(const node::Modified<FlexibleFrame>& frame, const ProposedSize& proposal,
                   const Environment& environment) const {
        const FlexibleFrame& f = frame.arguments;
        const FlexibleLength width{f.minWidth, f.idealWidth, f.maxWidth};
        const FlexibleLength height{f.minHeight, f.idealHeight, f.maxHeight};
        const ProposedSize offer{width.offered(proposal.width), height.offered(proposal.height)};
        Placed content = arrangeOutsideStack(frame.content, offer, environment);
        const Size size{width.chosen(proposal.width, content.size.width),
                        height.chosen(proposal.height, content.size.height)};
        return framed(std::move(content), size, f.alignment);
    }

    Placed arrange(const node::Modified<Font>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        Environment inner = environment;
        inner.text.font = modified.arguments;
        return arrange(modified.content, proposal, inner);
    }

    Placed arrange(const node::Modified<ShapeStyle>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        Environment inner = environment;
        if (const auto* level = std::get_if<HierarchicalShapeStyle>(&modified.arguments)) {
            inner.level = *level;
        } else {
            inner.foreground = std::get<Color>(modified.arguments);
            inner.level = HierarchicalShapeStyle::primary;
        }
        return arrange(modified.content, proposal, inner);
    }

    Placed arrange(const node::Modified<node::LineLimit>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        Environment inner = environment;
        inner.text.lineLimit = modified.arguments.lines;
        return arrange(modified.content, proposal, inner);
    }

    Placed arrange(const node::Modified<node::MinimumScaleFactor>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        Environment inner = environment;
        inner.text.minimumScaleFactor = modified.arguments.factor;
        return arrange(modified.content, proposal, inner);
    }

    Placed arrange(const node::Modified<node::Rotation>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        Placed placed;
        placed.rotation = modified.arguments;
        placed.size = placed.parts.emplace_back(arrange(modified.content, proposal, environment)).size;
        return placed;
    }

    // Whoever shows the tree in a container reads the background from it.
    Placed arrange(const node::Modified<node::ContainerBackground>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        return arrange(modified.content, proposal, environment);
    }

    Placed arrange(const node::Modified<node::Identity>& modified, const ProposedSize& proposal,
                   const Environment& environment) const {
        return arrange(modified.content, proposal, environment);
    }

    Placed arrangeOutsideStack(const View& view, const ProposedSize& proposal, Environment environment) const {
        environment.stackAxis.reset();
        return arrange(view, proposal, environment);
    }

    static Placed leaf(Size size, decltype(Placed::content) content) {
        Placed placed;
        placed.size = size;
        placed.content = std::move(content);
        return placed;
    }

    static Placed framed(Placed content, Size size, Alignment alignment) {
        Placed placed;
        placed.size = size;
        content.origin = aligned(content.size, size, alignment);
        placed.parts.push_back(std::move(content));
        return placed;
    }

    Placed arrangeStack(const std::vector<View>& children, Axis axis, std::optional<double> spacing,
                        const ProposedSize& proposal, Environment environment,
                        FunctionRef<double(Size child, Size stack)> offsetAcross) const {
        environment.stackAxis = axis;
        const auto lengthWhenOffered = [&](const View& child, double offer) {
            return length(arrange(child, offering(offer, proposal, axis), environment).size, axis);
        };

        std::vector<double> gaps;
        std::vector<StackChild> lengths;
        double gapSum = 0;
        for (std::size_t i = 0; i < children.size(); ++i) {
            gaps.push_back(i == 0 ? 0 : gapBetween(children[i - 1], children[i], spacing));
            gapSum += gaps.back();
            lengths.push_back({.priority = isSpacer(children[i]) ? -infinity : 0,
                               .minimum = lengthWhenOffered(children[i], 0),
                               .maximum = lengthWhenOffered(children[i], infinity)});
        }

        Placed placed;
        placed.parts.resize(children.size());
        std::optional<double> available = length(proposal, axis);
        if (available) *available -= gapSum;
        shareSpace(available, lengths, [&](std::size_t i, std::optional<double> offer) {
            placed.parts[i] = arrange(children[i], offering(offer, proposal, axis), environment);
            return length(placed.parts[i].size, axis);
        });

        double along = 0;
        double across = 0;
        for (std::size_t i = 0; i < children.size(); ++i) {
            along += gaps[i];
            const Size size = placed.parts[i].size;
            (axis == Axis::horizontal ? placed.parts[i].origin.x : placed.parts[i].origin.y) = along;
            along += length(size, axis);
            across = std::max(across, axis == Axis::horizontal ? size.height : size.width);
        }
        placed.size = sized(along, across, axis);
        for (Placed& part : placed.parts)
            (axis == Axis::horizontal ? part.origin.y : part.origin.x) = offsetAcross(part.size, placed.size);
        return placed;
    }

    const LayoutContext& context_;
};

}  // namespace

double opacity(HierarchicalShapeStyle level) {
    switch (level) {
        case HierarchicalShapeStyle::primary: return 0.85;
        case HierarchicalShapeStyle::secondary: return 0.55;
        case HierarchicalShapeStyle::tertiary: return 0.25;
        case HierarchicalShapeStyle::quaternary: return 0.10;
    }
    return 1;
}

Placed layOut(const View& view, const ProposedSize& proposal, const LayoutContext& context) {
    return Layout(context).arrange(view, proposal, {});
}

Point aligned(Size box, Size container, Alignment alignment) {
    const auto offset = [](double free, int position) { return free * position / 2; };
    return {offset(container.width - box.width, static_cast<int>(alignment.horizontal)),
            offset(container.height - box.height, static_cast<int>(alignment.vertical))};
}

}  // namespace orvel
