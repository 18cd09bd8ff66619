// The desktop surface on X11. Private to this folder.
#pragma once

#include <memory>

#include "platform/window/desktop_surface.h"
#include "platform/window/x11_display.h"

namespace orvel {

std::unique_ptr<DesktopSurface> makeX11Surface(std::unique_ptr<X11Display> display, SurfaceRequest request,
                                               EventLoop& loop);

}  // namespace orvel
