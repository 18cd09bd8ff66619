#include "platform/ui/stack_layout.h"

#include <algorithm>

#include "platform/ui/stack_space.h"

namespace orvel {
namespace {

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

}  // namespace

Placed arrangeStack(const std::vector<View>& children, const StackLayout& stack, const ProposedSize& proposal,
                    FunctionRef<std::shared_ptr<const Placed>(const View&, const ProposedSize&)> arrange) {
    const Axis axis = stack.axis;
    const auto arranged = [&](std::size_t i, std::optional<double> offer) {
        return arrange(children[i], offering(offer, proposal, axis));
    };

    std::vector<double> gaps;
    std::vector<StackChild> lengths;
    double gapSum = 0;
    for (std::size_t i = 0; i < children.size(); ++i) {
        gaps.push_back(i == 0 ? 0 : gapBetween(children[i - 1], children[i], stack.spacing));
        gapSum += gaps.back();
        lengths.push_back({.priority = isSpacer(children[i]) ? -infinity : 0,
                           .minimum = length(arranged(i, 0)->size, axis),
                           .maximum = length(arranged(i, infinity)->size, axis)});
    }

    Placed placed;
    placed.parts.resize(children.size());
    std::optional<double> available = length(proposal, axis);
    if (available) *available -= gapSum;
    shareSpace(available, lengths, [&](std::size_t i, std::optional<double> offer) {
        placed.parts[i].placed = arranged(i, offer);
        return length(placed.parts[i].placed->size, axis);
    });

    double along = 0;
    double widest = 0;
    for (const Placed::Part& part : placed.parts) widest = std::max(widest, length(part.placed->size, across(axis)));
    for (std::size_t i = 0; i < children.size(); ++i) {
        along += gaps[i];
        const Size size = placed.parts[i].placed->size;
        const Point offset = aligned(size, sized(0, widest, axis), stack.alignment);
        placed.parts[i].origin = axis == Axis::horizontal ? Point{along, offset.y} : Point{offset.x, along};
        along += length(size, axis);
    }
    placed.size = sized(along, widest, axis);
    return placed;
}

}  // namespace orvel
