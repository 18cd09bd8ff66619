// The connection to a Wayland compositor, the interfaces that it offers and its outputs. Private to this folder.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>

#include "platform/events/event_loop.h"
#include "platform/window/wayland/owner.h"

namespace orvel {

struct WaylandOutput {
    wl_output* handle() const { return proxy.get(); }

    std::uint32_t id;  ///< the global's name
    WaylandPtr<wl_output> proxy;
    std::string name;
    int x = 0;  ///< of all outputs together, as the compositor counts
    int y = 0;
    int widthPx = 0;
    int heightPx = 0;
    int scale = 1;
};

class WaylandDisplay {
    // Destroyed in reverse order.
    WaylandPtr<wl_display> display_;
    WaylandPtr<wl_registry> registry_;

public:
    /// Null when no compositor answers. The outputs' properties are known by then.
    static std::unique_ptr<WaylandDisplay> connect();

    /// From now on, the loop handles events. `outputsChanged`: an output was added or removed, or has another scale.
    /// `lost`: the connection has ended, for the given reason.
    void serve(EventLoop& loop, std::function<void()> outputsChanged, std::function<void(std::string)> lost);

    const std::list<WaylandOutput>& outputs() const { return outputs_; }
    const WaylandOutput* outputNamed(const std::string& name) const;
    const WaylandOutput* outputWithId(std::uint32_t id) const;

    // Null where the compositor doesn't offer them; the first two always exist.
    WaylandPtr<wl_compositor> compositor;
    WaylandPtr<wl_shm> sharedMemory;
    WaylandPtr<zwlr_layer_shell_v1> layerShell;
    WaylandPtr<xdg_wm_base> windowShell;
    WaylandPtr<wl_seat> seat;  ///< the first one
    WaylandPtr<wp_viewporter> viewporter;
    WaylandPtr<wp_fractional_scale_manager_v1> fractionalScales;

    bool isKWin = false;
    bool seatHasPointer = false;
    std::function<void()> pointerCameOrWent;

private:
    struct Events;
    WaylandDisplay() = default;
    void reportLoss();

    std::list<WaylandOutput> outputs_;
    std::function<void()> outputsChanged_;
    std::function<void(std::string)> lost_;
    std::optional<EventLoop::Watch> watch_;
};

}  // namespace orvel
