#include "platform/window/open_window_system.h"

#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <optional>

#include "platform/foundation/descriptor.h"
#include "platform/language/sentence.h"
#include "platform/window/wayland/window_system.h"
#include "platform/window/x11/window_system.h"

namespace orvel {
namespace {

// Why this process can't connect to anything, such as for want of descriptors; absent when it can.
std::optional<NoDisplay> whyUnconnected() {
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (socket) return std::nullopt;
    return NoDisplay{sentence("can't connect to a display: {0}", std::strerror(errno))};
}

}  // namespace

Result<std::unique_ptr<WindowSystem>, NoDisplay> openWindowSystem(EventLoop& loop) {
    auto wayland = WaylandDisplay::connect();
    if (wayland && wayland->layerShell) return makeWaylandWindowSystem(std::move(wayland), loop);
    if (auto x11 = X11Display::connect())
        return makeX11WindowSystem(std::move(x11), wayland ? XServerOf::waylandCompositor : XServerOf::session, loop);
    if (auto why = whyUnconnected()) return *std::move(why);
    if (wayland && wayland->windowShell) return makeWaylandWindowSystem(std::move(wayland), loop);
    return NoDisplay{sentence("there is no display: neither a Wayland compositor nor an X server answers")};
}

WindowSystems windowSystems() {
    const auto wayland = WaylandDisplay::connect();
    return {wayland != nullptr, wayland && wayland->layerShell, X11Display::connect() != nullptr};
}

}  // namespace orvel
