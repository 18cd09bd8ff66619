#include "platform/window/wayland/surface.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <fractional-scale-v1.h>
#include <viewporter.h>

namespace orvel {
namespace {

// A surface that has lasted this long doesn't count as a failure.
constexpr std::chrono::seconds lasting{10};

}  // namespace

struct WaylandSurface::Events {
    static WaylandSurface& self(void* data) { return *static_cast<WaylandSurface*>(data); }

    static void entered(void* data, wl_surface*, wl_output* output) {
        self(data).entered_.push_back(output);
        self(data).rescale();
    }
    static void left(void* data, wl_surface*, wl_output* output) {
        std::erase(self(data).entered_, output);
        if (!self(data).entered_.empty()) self(data).rescale();
    }
    static void preferredScale(void* data, wp_fractional_scale_v1*, std::uint32_t scale) {
        self(data).preferred120ths_ = scale;
        self(data).rescale();
    }
    static void frameShown(void* data, wl_callback*, std::uint32_t) {
        self(data).frame_.reset();
        self(data).drawIfReady();
    }

    // Newer protocol headers have members for later versions of the interface.
    static constexpr wl_surface_listener surfaceListener = [] {
        wl_surface_listener each{};
        each.enter = entered;
        each.leave = left;
        return each;
    }();
    static constexpr wp_fractional_scale_v1_listener scaleListener{.preferred_scale = preferredScale};
    static constexpr wl_callback_listener frameListener{.done = frameShown};
};

WaylandSurface::WaylandSurface(const Surroundings& surroundings, SurfaceRequest request)
    : request_(std::move(request)),
      display_(surroundings.display),
      pointer_(surroundings.pointer),
      surfaces_(surroundings.surfaces),
      windowClosed_(surroundings.windowClosed),
      retry_(surroundings.loop, [this] { appear(); }) {
    surfaces_.insert(this);
    appear();
}

WaylandSurface::~WaylandSurface() {
    disappear();
    surfaces_.erase(this);
}

void WaylandSurface::contentChanged(const std::string& title) {
    request_.title = title;
    if (role_) role_->setTitle(title);
    dirty_ = true;
    drawIfReady();
}

void WaylandSurface::move(Anchor anchor, Margin margin) {
    request_.placement.anchor = anchor;
    request_.placement.margin = margin;
    if (!role_) return;
    role_->place(anchor, margin);
    wl_surface_commit(surface_.get());
}

void WaylandSurface::appear() {
    const auto& name = request_.placement.output;
    const WaylandOutput* const output = name ? display_.outputNamed(*name) : nullptr;
    if (surface_ || display_.outputs().empty() || (name && !output)) return;

    surface_.reset(wl_compositor_create_surface(display_.compositor.get()));
    wl_surface_add_listener(surface_.get(), &Events::surfaceListener, this);
    if (request_.clicked) {
        pointer_.listen(surface_.get(), request_.clicked);
    } else {
        const WaylandPtr<wl_region> nothing(wl_compositor_create_region(display_.compositor.get()));
        wl_surface_set_input_region(surface_.get(), nothing.get());
    }
    if (display_.viewporter && display_.fractionalScales) {
        viewport_.reset(wp_viewporter_get_viewport(display_.viewporter.get(), surface_.get()));
        wp_viewport_set_destination(viewport_.get(), static_cast<int>(std::lround(request_.width)),
                                    static_cast<int>(std::lround(request_.height)));
        fractionalScale_.reset(
            wp_fractional_scale_manager_v1_get_fractional_scale(display_.fractionalScales.get(), surface_.get()));
        wp_fractional_scale_v1_add_listener(fractionalScale_.get(), &Events::scaleListener, this);
    }

    const WaylandRole::Handlers handlers{[this] { configured(); }, [this] { closed(); }};
    role_ = display_.layerShell ? makeLayerRole(display_, surface_.get(), request_, output, handlers)
                                : makeWindowRole(display_, surface_.get(), request_, handlers);
    role_->setTitle(request_.title);
    dirty_ = true;
    appeared_ = Clock::now();
    wl_surface_commit(surface_.get());
}

void WaylandSurface::disappear() {
    if (surface_) pointer_.forget(surface_.get());
    frame_.reset();
    buffers_.clear();
    role_.reset();
    fractionalScale_.reset();
    viewport_.reset();
    surface_.reset();
    entered_.clear();
    preferred120ths_.reset();
    configured_ = false;
}

void WaylandSurface::configured() {
    configured_ = true;
    if (!dirty_) return wl_surface_commit(surface_.get());
    drawIfReady();
}

void WaylandSurface::closed() {
    disappear();
    if (!display_.layerShell) return windowClosed_();
    if (Clock::now() - appeared_ >= lasting) backOff_.reset();
    retry_.set(backOff_.next());
}

void WaylandSurface::outputsChanged() {
    std::erase_if(entered_, [this](const wl_output* entered) {
        return std::ranges::find(display_.outputs(), entered, &WaylandOutput::handle) == display_.outputs().end();
    });
    if (display_.outputs().size() > outputs_) backOff_.reset();  // worth trying again at once
    outputs_ = display_.outputs().size();
    if (surface_) return rescale();
    if (!retry_.isSet()) retry_.set(backOff_.next());
}

double WaylandSurface::scale() const {
    if (preferred120ths_) return *preferred120ths_ / 120.0;
    int highest = 1;
    const auto& name = request_.placement.output;
    for (const WaylandOutput& output : display_.outputs()) {
        const bool counts = !entered_.empty() ? std::ranges::find(entered_, output.handle()) != entered_.end()
                                              : !name || output.name == *name;
        if (counts) highest = std::max(highest, output.scale);
    }
    return highest;
}

void WaylandSurface::rescale() {
    if (scale() == drawnScale_) return;
    dirty_ = true;
    drawIfReady();
}

void WaylandSurface::drawIfReady() {
    if (!dirty_ || !configured_ || frame_ || buffers_.size() >= 2) return;
    const double scale = this->scale();
    const auto pixels = [scale](double points) { return static_cast<int>(std::lround(points * scale)); };
    auto buffer =
        WaylandBuffer::make(display_.sharedMemory.get(), pixels(request_.width), pixels(request_.height), scale);
    dirty_ = false;
    drawnScale_ = scale;
    if (!buffer || !request_.draw(buffer->pixels())) return;

    buffer->released = [this, used = buffer.get()] {
        std::erase_if(buffers_, [used](const auto& each) { return each.get() == used; });
        drawIfReady();
    };
    if (!viewport_) wl_surface_set_buffer_scale(surface_.get(), static_cast<int>(scale));
    wl_surface_attach(surface_.get(), buffer->handle(), 0, 0);
    wl_surface_damage(surface_.get(), 0, 0, INT32_MAX, INT32_MAX);
    frame_.reset(wl_surface_frame(surface_.get()));
    wl_callback_add_listener(frame_.get(), &Events::frameListener, this);
    wl_surface_commit(surface_.get());
    buffers_.push_back(std::move(buffer));
}

}  // namespace orvel
