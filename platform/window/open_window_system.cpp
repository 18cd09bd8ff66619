#include "platform/window/open_window_system.h"

#include "platform/window/wayland/window_system.h"
#include "platform/window/x11/window_system.h"

namespace orvel {

Result<std::unique_ptr<WindowSystem>, NoDisplay> openWindowSystem(EventLoop& loop) {
    auto wayland = WaylandDisplay::connect();
    if (wayland && wayland->layerShell) return makeWaylandWindowSystem(std::move(wayland), loop);
    if (auto x11 = X11Display::connect()) {
        const char* const why =
            wayland ? "the Wayland compositor has no layer shell; the card is a window of its X server" : nullptr;
        return makeX11WindowSystem(std::move(x11), why, loop);
    }
    if (wayland && wayland->windowShell) return makeWaylandWindowSystem(std::move(wayland), loop);
    return NoDisplay{"there is no display: neither a Wayland compositor nor an X server answers"};
}

WindowSystems windowSystems() {
    const auto wayland = WaylandDisplay::connect();
    return {wayland != nullptr, wayland && wayland->layerShell, X11Display::connect() != nullptr};
}

}  // namespace orvel
