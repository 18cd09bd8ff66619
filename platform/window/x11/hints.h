// The properties by which an X11 window describes itself to window managers, compositing managers and a person's tools
// (Extended Window Manager Hints 1.5, Inter-Client Communication Conventions Manual 2.0). Private to this folder.
#pragma once

#include "platform/window/surface/desktop_surface.h"
#include "platform/window/x11/display.h"

namespace orvel {

/// Who keeps the window in its place.
enum class Keeper {
    itself,        ///< an override-redirect window, which window managers leave alone
    windowManager  ///< a part of the desktop, by the window manager's means
};

/// The window by which a window manager that follows the hints can be known; XCB_WINDOW_NONE without one.
xcb_window_t findWindowManager(const X11Display& display);

/// Of a window that is to be below others: itself, save where the window manager would show it above them.
Keeper chooseKeeper(const X11Display& display, xcb_window_t windowManager);

/// What cards can't do on the X server of a Wayland compositor without layer shell, in a sentence for a person.
std::string limitsInsideWayland(const X11Display& display, xcb_window_t windowManager);

void describe(const X11Display& display, xcb_window_t window, const SurfaceRequest& request, Keeper keeper,
              const PixelRect& area);
void setTitle(const X11Display& display, xcb_window_t window, const std::string& title);

}  // namespace orvel
