// X11 as the session's window system. Private to this folder.
#pragma once

#include <memory>

#include "platform/window/surface/window_system.h"
#include "platform/window/x11/display.h"

namespace orvel {

enum class XServerOf {
    session,
    waylandCompositor  ///< one without layer shell
};

std::unique_ptr<WindowSystem> makeX11WindowSystem(std::unique_ptr<X11Display> display, XServerOf whose,
                                                  EventLoop& loop);

}  // namespace orvel
