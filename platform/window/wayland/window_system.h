// Wayland as the session's window system. Private to this folder.
#pragma once

#include <memory>

#include "platform/window/surface/window_system.h"
#include "platform/window/wayland/display.h"

namespace orvel {

/// Its surfaces are layer surfaces where the compositor offers layer shell, else plain windows, for which it must offer
/// xdg-shell.
std::unique_ptr<WindowSystem> makeWaylandWindowSystem(std::unique_ptr<WaylandDisplay> display, EventLoop& loop);

}  // namespace orvel
