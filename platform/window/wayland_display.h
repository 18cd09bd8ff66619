// The connection to a Wayland compositor, the interfaces that it offers and its outputs. Private to this folder.
#pragma once

#include <wayland-client.h>

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>

#include "platform/foundation/release_with.h"
#include "platform/window/event_loop.h"

struct wp_fractional_scale_manager_v1;
struct wp_viewporter;
struct xdg_wm_base;
struct zwlr_layer_shell_v1;

namespace orvel {

template <class Interface, auto destroy>
using WaylandPtr = std::unique_ptr<Interface, ReleaseWith<destroy>>;

struct WaylandOutput {
    std::uint32_t id;  ///< the global's name
    wl_output* proxy;
    std::string name;
    int widthPx = 0;
    int heightPx = 0;
    int scale = 1;
};

class WaylandDisplay {
public:
    /// Null when no compositor answers. Every output has told its properties.
    static std::unique_ptr<WaylandDisplay> connect();
    ~WaylandDisplay();

    /// From here on the loop handles events. `outputsChanged`: one came, went or has another scale. `lost`: the
    /// connection has ended, for the reason given.
    void serve(EventLoop& loop, std::function<void()> outputsChanged, std::function<void(std::string)> lost);

    const std::list<WaylandOutput>& outputs() const { return outputs_; }
    const WaylandOutput* outputNamed(const std::string& name) const;

    // Null where the compositor doesn't offer them; the first two always are there.
    wl_compositor* compositor = nullptr;
    wl_shm* sharedMemory = nullptr;
    zwlr_layer_shell_v1* layerShell = nullptr;
    xdg_wm_base* windowShell = nullptr;
    wp_viewporter* viewporter = nullptr;
    wp_fractional_scale_manager_v1* fractionalScales = nullptr;

private:
    struct Events;
    WaylandDisplay() = default;
    void lose();

    wl_display* display_ = nullptr;
    wl_registry* registry_ = nullptr;
    std::list<WaylandOutput> outputs_;
    std::function<void()> outputsChanged_;
    std::function<void(std::string)> lost_;
    std::optional<EventLoop::Watch> watch_;
};

}  // namespace orvel
