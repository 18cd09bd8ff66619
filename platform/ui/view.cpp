#include "platform/ui/view.h"

namespace orvel {

View::View(Node node) : node_(std::make_shared<const Node>(std::move(node))) {}

bool operator==(const View& a, const View& b) {
    return a.node_ == b.node_ || a.node_->alternatives() == b.node_->alternatives();
}

View View::frame(FixedFrame frame) const {
    return View(node::Modified<FixedFrame>{frame, *this});
}

View View::frame(FlexibleFrame frame) const {
    return View(node::Modified<FlexibleFrame>{frame, *this});
}

View View::font(Font font) const {
    return View(node::Modified<Font>{font, *this});
}

View View::foregroundStyle(ShapeStyle style) const {
    return View(node::Modified<ShapeStyle>{style, *this});
}

View View::lineLimit(int lines) const {
    return View(node::Modified<node::LineLimit>{{lines}, *this});
}

View View::minimumScaleFactor(double factor) const {
    return View(node::Modified<node::MinimumScaleFactor>{{factor}, *this});
}

View View::rotationEffect(Angle angle, UnitPoint anchor) const {
    return View(node::Modified<node::Rotation>{{angle, anchor}, *this});
}

View View::containerBackground(Color color, ContainerBackgroundPlacement placement) const {
    return View(node::Modified<node::ContainerBackground>{{color, placement}, *this});
}

View Text(std::string_view verbatim) {
    return View(node::Text{std::string(verbatim)});
}

View Text(LocalizedStringKey key) {
    return View(node::Text{std::move(key)});
}

View Image::systemName(std::string_view name) {
    return View(node::Image{std::string(name)});
}

View Spacer(std::optional<double> minLength) {
    return View(node::Spacer{minLength});
}

Circle Circle::trim(double from, double to) const {
    Circle part = *this;
    part.from_ = from;
    part.to_ = to;
    return part;
}

View Circle::stroke(ShapeStyle style, StrokeStyle stroke) const {
    return View(node::Circle{from_, to_, style, stroke});
}

View Circle::fill(ShapeStyle style) const {
    return View(node::Circle{from_, to_, style, std::nullopt});
}

ContainerBuilder<node::VStack> VStack(HorizontalAlignment alignment, std::optional<double> spacing) {
    return {{alignment, spacing, {}}};
}

ContainerBuilder<node::HStack> HStack(VerticalAlignment alignment, std::optional<double> spacing) {
    return {{alignment, spacing, {}}};
}

ContainerBuilder<node::ZStack> ZStack(Alignment alignment) {
    return {{alignment, {}}};
}

}  // namespace orvel
