// The window system that this session has, whichever it is.
#pragma once

#include <memory>

#include "platform/events/event_loop.h"
#include "platform/foundation/result.h"
#include "platform/window/surface/window_system.h"

namespace orvel {

/// On Wayland surfaces are layer surfaces; without layer shell, windows of the X server beside it, or plain windows. On
/// X11 they are windows under the others.
Result<std::unique_ptr<WindowSystem>, NoDisplay> openWindowSystem(EventLoop& loop);

/// What answers in this session.
struct WindowSystems {
    bool wayland = false;
    bool layerShell = false;  ///< of the Wayland compositor
    bool x11 = false;
};
WindowSystems windowSystems();

}  // namespace orvel
