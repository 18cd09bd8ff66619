// What a Wayland surface is to the person: a part of the desktop, or a plain window. Private to this folder.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/window/surface/desktop_surface.h"
#include "platform/window/wayland/display.h"

namespace orvel {

/// Made for a surface without content, which is committed then. It must go before the surface does.
class WaylandRole {
public:
    virtual ~WaylandRole() = default;
    virtual void setTitle(const std::string&) {}
    /// From the surface's next commit on.
    virtual void place(Anchor, Margin) {}

    struct Handlers {
        std::function<void()> configured;  ///< content may be committed from now on; the next commit acknowledges
        std::function<void()> closed;      ///< the surface is of no more use
    };
};

/// Nowhere in the way: it keeps clear of panels, takes no keys and leaves no room free around it.
std::unique_ptr<WaylandRole> makeLayerRole(const WaylandDisplay& display, wl_surface* surface,
                                           const SurfaceRequest& request, const WaylandOutput* output,
                                           WaylandRole::Handlers handlers);

std::unique_ptr<WaylandRole> makeWindowRole(const WaylandDisplay& display, wl_surface* surface,
                                            const SurfaceRequest& request, WaylandRole::Handlers handlers);

}  // namespace orvel
