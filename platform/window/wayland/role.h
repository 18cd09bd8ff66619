// The role of a Wayland surface: a part of the desktop, or a plain window. Private to this folder.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/window/surface/desktop_surface.h"
#include "platform/window/wayland/display.h"

namespace orvel {

/// Created for a surface without content, which it commits. It must be destroyed before the surface.
class WaylandRole {
public:
    virtual ~WaylandRole() = default;
    virtual void setTitle(const std::string&) {}
    /// Takes effect with the surface's next commit.
    virtual void place(Anchor, Margin) {}

    struct Handlers {
        std::function<void()> configured;  ///< content may be committed from now on; the next commit acknowledges
        std::function<void()> closed;      ///< the surface can't be used any more
    };
};

/// A layer surface that keeps clear of panels, takes no keys and reserves no space.
std::unique_ptr<WaylandRole> makeLayerRole(const WaylandDisplay& display, wl_surface* surface,
                                           const SurfaceRequest& request, const WaylandOutput* output,
                                           WaylandRole::Handlers handlers);

std::unique_ptr<WaylandRole> makeWindowRole(const WaylandDisplay& display, wl_surface* surface,
                                            const SurfaceRequest& request, WaylandRole::Handlers handlers);

}  // namespace orvel
