#include "platform/window/x11/surface.h"

#include <cmath>

namespace orvel {

X11Surface::X11Surface(const Surroundings& surroundings, SurfaceRequest request)
    : request_(std::move(request)), surroundings_(surroundings) {
    surroundings_.surfaces.insert(this);
    arrange();
}

X11Surface::~X11Surface() {
    surroundings_.surfaces.erase(this);
}

void X11Surface::contentChanged(const std::string& title) {
    request_.title = title;
    if (!window_) return;
    window_->setTitle(title);
    window_->draw(request_);
}

void X11Surface::move(Anchor anchor, Margin margin) {
    request_.placement.anchor = anchor;
    request_.placement.margin = margin;
    arrange();
}

void X11Surface::arrange() {
    const auto where = area();
    if (!where)
        window_.reset();
    else if (!window_)
        window_ = std::make_unique<X11Window>(surroundings_.stacking, request_, keeper(), surroundings_.transparency,
                                              surroundings_.scale, *where);
    else if (window_->area() != *where)
        window_->move(where->x, where->y);
}

void X11Surface::replace() {
    window_.reset();
    arrange();
}

Keeper X11Surface::keeper() const {
    return request_.placement.layer >= Layer::top ? Keeper::itself : surroundings_.keeperBelow;
}

std::optional<PixelRect> X11Surface::area() const {
    const X11Monitor* const monitor = chosenMonitor(surroundings_.monitors, request_.placement.output);
    if (!monitor) return std::nullopt;
    const auto pixels = [this](double points) { return static_cast<int>(std::lround(points * surroundings_.scale)); };
    const Margin margin = request_.placement.margin;
    return placed({0, 0, pixels(request_.width), pixels(request_.height)}, roomOf(*monitor, surroundings_.workArea),
                  request_.placement.anchor, pixels(margin.x), pixels(margin.y));
}

}  // namespace orvel
