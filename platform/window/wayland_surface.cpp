#include "platform/window/wayland_surface.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include <fractional-scale-v1.h>
#include "platform/window/back_off.h"
#include "platform/window/timer.h"
#include "platform/window/wayland_buffer.h"
#include "platform/window/wayland_shell.h"
#include <viewporter.h>

namespace orvel {
namespace {

using Clock = std::chrono::steady_clock;

// A surface that has lasted as long was no failure.
constexpr std::chrono::seconds lasting{10};

class WaylandSurface final : public DesktopSurface {
public:
    WaylandSurface(std::unique_ptr<WaylandDisplay> display, SurfaceRequest request, EventLoop& loop)
        : request_(std::move(request)), display_(std::move(display)), retry_(loop, [this] { appear(); }) {
        display_->serve(
            loop, [this] { outputsChanged(); }, [this](const std::string& why) { request_.ended(why); });
        if (const auto& name = request_.placement.output; name && !display_->outputNamed(*name))
            request_.notice("there is no output " + *name + " now; the card appears when it is there");
        appear();
    }

    ~WaylandSurface() override { disappear(); }

    void contentChanged(const std::string& title) override {
        request_.title = title;
        if (role_) role_->setTitle(title);
        dirty_ = true;
        drawIfReady();
    }

private:
    // The surface's life: it appears where there is an output for it, and again after each event that ended it.

    void appear() {
        const auto& name = request_.placement.output;
        const WaylandOutput* const output = name ? display_->outputNamed(*name) : nullptr;
        if (surface_ || display_->outputs().empty() || (name && !output)) return;

        surface_.reset(wl_compositor_create_surface(display_->compositor));
        wl_surface_add_listener(surface_.get(), &surfaceListener, this);
        const WaylandPtr<wl_region, wl_region_destroy> nothing(wl_compositor_create_region(display_->compositor));
        wl_surface_set_input_region(surface_.get(), nothing.get());
        if (display_->viewporter && display_->fractionalScales) {
            viewport_.reset(wp_viewporter_get_viewport(display_->viewporter, surface_.get()));
            wp_viewport_set_destination(viewport_.get(), static_cast<int>(std::lround(request_.width)),
                                        static_cast<int>(std::lround(request_.height)));
            fractionalScale_.reset(
                wp_fractional_scale_manager_v1_get_fractional_scale(display_->fractionalScales, surface_.get()));
            wp_fractional_scale_v1_add_listener(fractionalScale_.get(), &scaleListener, this);
        }

        const WaylandRole::Handlers handlers{[this] { configured(); }, [this] { closed(); }};
        role_ = display_->layerShell ? makeLayerRole(*display_, surface_.get(), request_, output, handlers)
                                     : makeWindowRole(*display_, surface_.get(), request_, handlers);
        role_->setTitle(request_.title);
        dirty_ = true;
        appeared_ = Clock::now();
        wl_surface_commit(surface_.get());
    }

    void disappear() {
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

    void configured() {
        configured_ = true;
        if (!dirty_) return wl_surface_commit(surface_.get());
        drawIfReady();
    }

    void closed() {
        disappear();
        if (!display_->layerShell) return request_.ended(std::nullopt);
        if (Clock::now() - appeared_ >= lasting) backOff_.reset();
        retry_.set(backOff_.next());
    }

    void outputsChanged() {
        std::erase_if(entered_, [this](const wl_output* entered) {
            return std::ranges::find(display_->outputs(), entered, &WaylandOutput::proxy) == display_->outputs().end();
        });
        if (display_->outputs().size() > outputs_) backOff_.reset();  // a new chance
        outputs_ = display_->outputs().size();
        if (surface_) return rescale();
        if (!retry_.isSet()) retry_.set(backOff_.next());
    }

    // The scale: the compositor's own word in 120ths, else that of the outputs that the surface is on, else a guess.

    double scale() const {
        if (preferred120ths_) return *preferred120ths_ / 120.0;
        int highest = 1;
        const auto& name = request_.placement.output;
        for (const WaylandOutput& output : display_->outputs()) {
            const bool counts = !entered_.empty() ? std::ranges::find(entered_, output.proxy) != entered_.end()
                                                  : !name || output.name == *name;
            if (counts) highest = std::max(highest, output.scale);
        }
        return highest;
    }

    void rescale() {
        if (scale() == drawnScale_) return;
        dirty_ = true;
        drawIfReady();
    }

    // Drawing: when the content is another one, the compositor wants a frame and one of two buffers is free.

    void drawIfReady() {
        if (!dirty_ || !configured_ || frame_ || buffers_.size() >= 2) return;
        const double scale = this->scale();
        const auto pixels = [scale](double points) { return static_cast<int>(std::lround(points * scale)); };
        auto buffer =
            WaylandBuffer::make(display_->sharedMemory, pixels(request_.width), pixels(request_.height), scale);
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
        wl_callback_add_listener(frame_.get(), &frameListener, this);
        wl_surface_commit(surface_.get());
        buffers_.push_back(std::move(buffer));
    }

    static WaylandSurface& self(void* data) { return *static_cast<WaylandSurface*>(data); }

    static const wl_surface_listener surfaceListener;
    static const wp_fractional_scale_v1_listener scaleListener;
    static const wl_callback_listener frameListener;

    SurfaceRequest request_;
    std::unique_ptr<WaylandDisplay> display_;
    DelayTimer retry_;
    BackOff backOff_;
    std::size_t outputs_ = 0;
    Clock::time_point appeared_;

    // In the order in which they are made; they go in the opposite one.
    WaylandPtr<wl_surface, wl_surface_destroy> surface_;
    WaylandPtr<wp_viewport, wp_viewport_destroy> viewport_;
    WaylandPtr<wp_fractional_scale_v1, wp_fractional_scale_v1_destroy> fractionalScale_;
    std::unique_ptr<WaylandRole> role_;
    std::vector<std::unique_ptr<WaylandBuffer>> buffers_;  ///< those that the compositor reads
    WaylandPtr<wl_callback, wl_callback_destroy> frame_;

    std::vector<wl_output*> entered_;
    std::optional<std::uint32_t> preferred120ths_;
    double drawnScale_ = 0;
    bool configured_ = false;
    bool dirty_ = true;
};

const wl_surface_listener WaylandSurface::surfaceListener{
    .enter =
        [](void* data, wl_surface*, wl_output* output) {
            self(data).entered_.push_back(output);
            self(data).rescale();
        },
    .leave =
        [](void* data, wl_surface*, wl_output* output) {
            std::erase(self(data).entered_, output);
            if (!self(data).entered_.empty()) self(data).rescale();
        },
};

const wp_fractional_scale_v1_listener WaylandSurface::scaleListener{
    .preferred_scale =
        [](void* data, wp_fractional_scale_v1*, std::uint32_t scale) {
            self(data).preferred120ths_ = scale;
            self(data).rescale();
        },
};

const wl_callback_listener WaylandSurface::frameListener{
    .done =
        [](void* data, wl_callback*, std::uint32_t) {
            self(data).frame_.reset();
            self(data).drawIfReady();
        },
};

}  // namespace

std::unique_ptr<DesktopSurface> makeWaylandSurface(std::unique_ptr<WaylandDisplay> display, SurfaceRequest request,
                                                   EventLoop& loop) {
    return std::make_unique<WaylandSurface>(std::move(display), std::move(request), loop);
}

}  // namespace orvel
