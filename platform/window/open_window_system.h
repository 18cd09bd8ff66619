// Opens the session's window system, Wayland or X11.
#pragma once

#include <memory>

#include "platform/events/event_loop.h"
#include "platform/foundation/result.h"
#include "platform/window/surface/window_system.h"

namespace orvel {

/// On Wayland, surfaces are layer surfaces; without layer shell, they are windows of its X server, or else plain
/// windows. On X11, they are windows below the others.
Result<std::unique_ptr<WindowSystem>, NoDisplay> openWindowSystem(EventLoop& loop);

/// Which window systems this session has.
struct WindowSystems {
    bool wayland = false;
    bool layerShell = false;  ///< of the Wayland compositor
    bool x11 = false;
};
WindowSystems windowSystems();

}  // namespace orvel
