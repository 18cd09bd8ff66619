// The view vocabulary: words that build a declarative tree, and modifiers that wrap one. A tree is pure data,
// immutable, comparable and cheap to copy; laying it out and drawing it are passes over it, elsewhere.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ui/geometry.h"
#include "platform/ui/localized.h"
#include "platform/ui/style.h"

namespace orvel {

struct Node;

/// The arguments of a fixed frame; an absent side is the content's own.
struct FixedFrame {
    std::optional<double> width = {};
    std::optional<double> height = {};
    Alignment alignment = Alignment::center;
    friend bool operator==(const FixedFrame&, const FixedFrame&) = default;
};

/// The arguments of a flexible frame.
struct FlexibleFrame {
    std::optional<double> minWidth = {};
    std::optional<double> idealWidth = {};
    std::optional<double> maxWidth = {};
    std::optional<double> minHeight = {};
    std::optional<double> idealHeight = {};
    std::optional<double> maxHeight = {};
    Alignment alignment = Alignment::center;
    friend bool operator==(const FlexibleFrame&, const FlexibleFrame&) = default;
};

enum class ContainerBackgroundPlacement { widget };

class View {
public:
    explicit View(Node node);

    const Node& node() const { return *node_; }

    View frame(FixedFrame frame) const;
    View frame(FlexibleFrame frame) const;
    View font(Font font) const;
    View foregroundStyle(ShapeStyle style) const;
    /// At most that many lines; less than 1 counts as 1.
    View lineLimit(int lines) const;
    /// Text may shrink to that fraction of its size, above 0 to 1, before it is cut.
    View minimumScaleFactor(double factor) const;
    /// Turns the drawing without affecting the layout.
    View rotationEffect(Angle angle, UnitPoint anchor = UnitPoint::center()) const;
    View containerBackground(Color color, ContainerBackgroundPlacement placement) const;

    /// Compares whole trees.
    friend bool operator==(const View& a, const View& b);

private:
    std::shared_ptr<const Node> node_;
};

/// The children of a container, in order. An absent optional adds none, and a list adds all of its views.
class Children {
public:
    class Item {
    public:
        Item(View view) : views_{std::move(view)} {}
        Item(std::optional<View> view) {
            if (view) views_.push_back(*std::move(view));
        }
        Item(std::vector<View> views) : views_(std::move(views)) {}

    private:
        friend class Children;
        std::vector<View> views_;
    };

    Children(std::initializer_list<Item> items) {
        for (const auto& item : items) views.insert(views.end(), item.views_.begin(), item.views_.end());
    }

    std::vector<View> views;
};

/// A container before it has its children: VStack(alignment, spacing)({first, second}).
template <class Stack>
struct ContainerBuilder {
    Stack stack;
    View operator()(Children children) && {
        stack.children = std::move(children.views);
        return View(std::move(stack));
    }
};

namespace node {

struct Text {
    std::variant<std::string, LocalizedStringKey> content;
    friend bool operator==(const Text&, const Text&) = default;
};
struct Image {
    std::string systemName;
    friend bool operator==(const Image&, const Image&) = default;
};
struct Spacer {
    std::optional<double> minLength;  ///< absent: the default
    friend bool operator==(const Spacer&, const Spacer&) = default;
};
/// A circle inscribed in its box: the part of its outline between two fractions stroked, or its inside filled. The
/// outline starts at the rightmost point and runs clockwise; fractions outside [0, 1] count as the nearest end.
struct Circle {
    double trimFrom = 0;
    double trimTo = 1;
    ShapeStyle style = HierarchicalShapeStyle::primary;
    std::optional<StrokeStyle> stroke;  ///< absent: filled
    friend bool operator==(const Circle&, const Circle&) = default;
};
struct VStack {
    HorizontalAlignment alignment;
    std::optional<double> spacing;  ///< absent: the default for each pair of neighbours
    std::vector<View> children;
    friend bool operator==(const VStack&, const VStack&) = default;
};
struct HStack {
    VerticalAlignment alignment;
    std::optional<double> spacing;
    std::vector<View> children;
    friend bool operator==(const HStack&, const HStack&) = default;
};
struct ZStack {
    Alignment alignment;
    std::vector<View> children;
    friend bool operator==(const ZStack&, const ZStack&) = default;
};

/// A modifier around its content.
template <class Arguments>
struct Modified {
    Arguments arguments;
    View content;
    friend bool operator==(const Modified&, const Modified&) = default;
};
struct LineLimit {
    int lines;
    friend bool operator==(const LineLimit&, const LineLimit&) = default;
};
struct MinimumScaleFactor {
    double factor;
    friend bool operator==(const MinimumScaleFactor&, const MinimumScaleFactor&) = default;
};
struct Rotation {
    Angle angle;
    UnitPoint anchor;
    friend bool operator==(const Rotation&, const Rotation&) = default;
};
struct ContainerBackground {
    Color color;
    ContainerBackgroundPlacement placement;
    friend bool operator==(const ContainerBackground&, const ContainerBackground&) = default;
};
/// The element of the data that a child represents.
struct Identity {
    std::int64_t id;
    friend bool operator==(const Identity&, const Identity&) = default;
};

using Variant =
    std::variant<Text, Image, Spacer, Circle, VStack, HStack, ZStack, Modified<FixedFrame>, Modified<FlexibleFrame>,
                 Modified<Font>, Modified<ShapeStyle>, Modified<LineLimit>, Modified<MinimumScaleFactor>,
                 Modified<Rotation>, Modified<ContainerBackground>, Modified<Identity>>;

}  // namespace node

struct Node : node::Variant {
    using node::Variant::variant;
    const node::Variant& alternatives() const { return *this; }
};

/// Shown as it is.
View Text(std::string_view verbatim);
/// Looked up when it is shown.
View Text(LocalizedStringKey key);

namespace Image {
/// A symbol of the system's set, sized by the font around it. A name that the set lacks leaves an empty box.
View systemName(std::string_view name);
}  // namespace Image

/// A gap along the enclosing stack's axis that takes the space that the other children leave.
View Spacer(std::optional<double> minLength = std::nullopt);

/// A circle's outline, to be stroked or filled.
class Circle {
public:
    Circle trim(double from, double to) const;
    View stroke(ShapeStyle style, StrokeStyle stroke) const;
    View fill(ShapeStyle style) const;

private:
    double from_ = 0;
    double to_ = 1;
};

ContainerBuilder<node::VStack> VStack(HorizontalAlignment alignment = HorizontalAlignment::center,
                                      std::optional<double> spacing = std::nullopt);
ContainerBuilder<node::HStack> HStack(VerticalAlignment alignment = VerticalAlignment::center,
                                      std::optional<double> spacing = std::nullopt);
ContainerBuilder<node::ZStack> ZStack(Alignment alignment = Alignment::center);

/// One view per element, in order, each identified by `id(element)`.
template <class Range, class Id, class Content>
std::vector<View> ForEach(const Range& data, Id id, Content content) {
    std::vector<View> views;
    for (const auto& element : data)
        views.push_back(
            View(node::Modified<node::Identity>{{static_cast<std::int64_t>(id(element))}, content(element)}));
    return views;
}

}  // namespace orvel
