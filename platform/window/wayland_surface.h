// The desktop surface on Wayland. Private to this folder.
#pragma once

#include <memory>

#include "platform/window/desktop_surface.h"
#include "platform/window/wayland_display.h"

namespace orvel {

/// A layer surface where the compositor offers layer shell, else a plain window, for which it must offer xdg-shell.
std::unique_ptr<DesktopSurface> makeWaylandSurface(std::unique_ptr<WaylandDisplay> display, SurfaceRequest request,
                                                   EventLoop& loop);

}  // namespace orvel
