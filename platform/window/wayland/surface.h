// A desktop surface on Wayland. Private to this folder.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/events/back_off.h"
#include "platform/events/timer.h"
#include "platform/window/surface/desktop_surface.h"
#include "platform/window/wayland/buffer.h"
#include "platform/window/wayland/display.h"
#include "platform/window/wayland/pointer.h"
#include "platform/window/wayland/role.h"

namespace orvel {

class WaylandSurface final : public DesktopSurface {
public:
    using Register = std::set<WaylandSurface*>;

    /// What the surfaces of one connection share.
    struct Surroundings {
        WaylandDisplay& display;
        EventLoop& loop;
        WaylandPointer& pointer;
        Register& surfaces;                  ///< those that exist
        std::function<void()> windowClosed;  ///< a person closed a plain window
    };

    WaylandSurface(const Surroundings& surroundings, SurfaceRequest request);
    ~WaylandSurface() override;
    WaylandSurface(const WaylandSurface&) = delete;

    void contentChanged(const std::string& title) override;
    void move(Anchor anchor, Margin margin) override;
    void outputsChanged();

private:
    struct Events;
    using Clock = std::chrono::steady_clock;

    // The surface's life: it is created when there is an output for it, and again after each event that ended it.
    void appear();
    void disappear();
    void configured();
    void closed();

    // The scale: as the compositor gives it in 120ths, else that of the outputs that the surface is on, else a guess.
    double scale() const;
    void rescale();

    // Drawing: when the content has changed, the compositor wants a frame, and one of two buffers is free.
    void drawIfReady();

    SurfaceRequest request_;
    WaylandDisplay& display_;
    WaylandPointer& pointer_;
    Register& surfaces_;
    std::function<void()> windowClosed_;
    DelayTimer retry_;
    BackOff backOff_;
    std::size_t outputs_ = 0;
    Clock::time_point appeared_;

    // In the order of their creation; they are destroyed in reverse order.
    WaylandPtr<wl_surface> surface_;
    WaylandPtr<wp_viewport> viewport_;
    WaylandPtr<wp_fractional_scale_v1> fractionalScale_;
    std::unique_ptr<WaylandRole> role_;
    std::vector<std::unique_ptr<WaylandBuffer>> buffers_;  ///< those that the compositor reads
    WaylandPtr<wl_callback> frame_;

    std::vector<wl_output*> entered_;
    std::optional<std::uint32_t> preferred120ths_;
    double drawnScale_ = 0;
    bool configured_ = false;
    bool dirty_ = true;
};

}  // namespace orvel
