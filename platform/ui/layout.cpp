#include "platform/ui/layout.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "platform/ui/environment.h"
#include "platform/ui/flexible_length.h"
#include "platform/ui/stack_layout.h"

namespace orvel {
namespace {

using Shared = std::shared_ptr<const Placed>;

class Layout {
public:
    explicit Layout(const LayoutContext& context) : context_(context) {}

    // A stack lays out each child several times, and nested stacks multiply that. Remembering the results keeps the
    // cost of deep trees from growing with every level.
    Shared arrange(const View& view, const ProposedSize& proposal, const Environment& environment) {
        auto& answers = answers_[&view.node()];
        for (const Answer& answer : answers)
            if (answer.proposal == proposal && answer.environment == environment) return answer.placed;
        Shared placed =
            std::visit([&](const auto& n) { return arrange(n, proposal, environment); }, view.node().alternatives());
        answers.push_back({proposal, environment, placed});
        return placed;
    }

private:
    struct Answer {
        ProposedSize proposal;
        Environment environment;
        Shared placed;
    };

    Shared arrange(const node::Text& text, const ProposedSize& proposal, const Environment& environment) {
        if (const auto* verbatim = std::get_if<std::string>(&text.content))
            return arrange(*verbatim, proposal, environment);
        return arrange(localized(std::get<LocalizedStringKey>(text.content), context_.localizer), proposal,
                       environment);
    }

    Shared arrange(const std::string& text, const ProposedSize& proposal, const Environment& environment) {
        PlacedText placed{fitText(text, environment.text, proposal, context_.text), environment.text.font,
                          environment.foregroundColor()};
        const Size size = placed.fitted.size;
        return leaf(size, std::move(placed));
    }

    // A symbol's box is a square as high as a line of its font.
    Shared arrange(const node::Image& image, const ProposedSize&, const Environment& environment) {
        const FontMetrics metrics = context_.text.metrics(environment.text.font);
        const double side = std::ceil(metrics.ascent + metrics.descent);
        return leaf({side, side}, PlacedSymbol{image.systemName, environment.foregroundColor()});
    }

    Shared arrange(const node::Spacer& spacer, const ProposedSize& proposal, const Environment& environment) {
        const double least = spacer.minLength.value_or(defaultSpacerLength);
        const auto along = [&](Axis axis) { return std::max(length(proposal, axis).value_or(least), least); };
        if (!environment.stackAxis) return leaf({along(Axis::horizontal), along(Axis::vertical)}, {});
        return leaf(sized(along(*environment.stackAxis), 0, *environment.stackAxis), {});
    }

    Shared arrange(const node::Circle& circle, const ProposedSize& proposal, const Environment& environment) {
        return leaf({proposal.width.value_or(defaultShapeLength), proposal.height.value_or(defaultShapeLength)},
                    PlacedCircle{circle.trimFrom, circle.trimTo, circle.stroke, environment.color(circle.style)});
    }

    Shared arrange(const node::VStack& stack, const ProposedSize& proposal, const Environment& environment) {
        return arrange(stack.children, {Axis::vertical, stack.spacing, {stack.alignment, VerticalAlignment::top}},
                       proposal, environment);
    }

    Shared arrange(const node::HStack& stack, const ProposedSize& proposal, const Environment& environment) {
        return arrange(stack.children,
                       {Axis::horizontal, stack.spacing, {HorizontalAlignment::leading, stack.alignment}}, proposal,
                       environment);
    }

    Shared arrange(const std::vector<View>& children, const StackLayout& stack, const ProposedSize& proposal,
                   Environment environment) {
        environment.stackAxis = stack.axis;
        return shared(arrangeStack(children, stack, proposal, [&](const View& child, const ProposedSize& offer) {
            return arrange(child, offer, environment);
        }));
    }

    Shared arrange(const node::ZStack& stack, const ProposedSize& proposal, const Environment& environment) {
        const Environment inner = environment.outsideStack();
        Placed placed;
        for (const View& child : stack.children) {
            placed.parts.push_back({{}, arrange(child, proposal, inner)});
            const Size size = placed.parts.back().placed->size;
            placed.size = {std::max(placed.size.width, size.width), std::max(placed.size.height, size.height)};
        }
        for (Placed::Part& part : placed.parts) part.origin = aligned(part.placed->size, placed.size, stack.alignment);
        return shared(std::move(placed));
    }

    Shared arrange(const node::Modified<FixedFrame>& frame, const ProposedSize& proposal,
                   const Environment& environment) {
        const auto& [width, height, alignment] = frame.arguments;
        const ProposedSize offer{width ? width : proposal.width, height ? height : proposal.height};
        const Shared content = arrange(frame.content, offer, environment.outsideStack());
        return framed(content, {width.value_or(content->size.width), height.value_or(content->size.height)}, alignment);
    }

    Shared arrange(const node::Modified<FlexibleFrame>& frame, const ProposedSize& proposal,
                   const Environment& environment) {
        const FlexibleFrame& f = frame.arguments;
        const FlexibleLength width{f.minWidth, f.idealWidth, f.maxWidth};
        const FlexibleLength height{f.minHeight, f.idealHeight, f.maxHeight};
        const ProposedSize offer{width.offered(proposal.width), height.offered(proposal.height)};
        const Shared content = arrange(frame.content, offer, environment.outsideStack());
        return framed(
            content,
            {width.chosen(proposal.width, content->size.width), height.chosen(proposal.height, content->size.height)},
            f.alignment);
    }

    Shared arrange(const node::Modified<Font>& modified, const ProposedSize& proposal, Environment environment) {
        environment.text.font = modified.arguments;
        return arrange(modified.content, proposal, environment);
    }

    Shared arrange(const node::Modified<ShapeStyle>& modified, const ProposedSize& proposal,
                   const Environment& environment) {
        return arrange(modified.content, proposal, environment.withForeground(modified.arguments));
    }

    Shared arrange(const node::Modified<node::LineLimit>& modified, const ProposedSize& proposal,
                   Environment environment) {
        environment.text.lineLimit = modified.arguments.lines;
        return arrange(modified.content, proposal, environment);
    }

    Shared arrange(const node::Modified<node::MinimumScaleFactor>& modified, const ProposedSize& proposal,
                   Environment environment) {
        environment.text.minimumScaleFactor = modified.arguments.factor;
        return arrange(modified.content, proposal, environment);
    }

    Shared arrange(const node::Modified<node::Rotation>& modified, const ProposedSize& proposal,
                   const Environment& environment) {
        const Shared content = arrange(modified.content, proposal, environment);
        return shared({.size = content->size, .rotation = modified.arguments, .parts = {{{}, content}}});
    }

    // The background is drawn by whoever shows the tree; it doesn't affect the layout.
    Shared arrange(const node::Modified<node::ContainerBackground>& modified, const ProposedSize& proposal,
                   const Environment& environment) {
        return arrange(modified.content, proposal, environment);
    }

    Shared arrange(const node::Modified<node::Identity>& modified, const ProposedSize& proposal,
                   const Environment& environment) {
        return arrange(modified.content, proposal, environment);
    }

    static Shared shared(Placed placed) { return std::make_shared<const Placed>(std::move(placed)); }

    static Shared leaf(Size size, decltype(Placed::content) content) {
        return shared({.size = size, .content = std::move(content)});
    }

    static Shared framed(const Shared& content, Size size, Alignment alignment) {
        return shared({.size = size, .parts = {{aligned(content->size, size, alignment), content}}});
    }

    const LayoutContext& context_;
    std::unordered_map<const Node*, std::vector<Answer>> answers_;
};

}  // namespace

std::shared_ptr<const Placed> layOut(const View& view, const ProposedSize& proposal, const LayoutContext& context) {
    return Layout(context).arrange(view, proposal, {});
}

Point aligned(Size box, Size container, Alignment alignment) {
    const auto offset = [](double free, int position) { return free * position / 2; };
    return {offset(container.width - box.width, static_cast<int>(alignment.horizontal)),
            offset(container.height - box.height, static_cast<int>(alignment.vertical))};
}

}  // namespace orvel
