#include "platform/window/desktop_surface.h"

#include "platform/window/wayland_surface.h"
#include "platform/window/x11_surface.h"

namespace orvel {
namespace {

const NoDisplay noDisplay{"there is no display: neither a Wayland compositor nor an X server answers"};

}  // namespace

Result<std::unique_ptr<DesktopSurface>, NoDisplay> openDesktopSurface(SurfaceRequest request, EventLoop& loop) {
    auto wayland = WaylandDisplay::connect();
    if (wayland && wayland->layerShell) return makeWaylandSurface(std::move(wayland), std::move(request), loop);
    if (auto x11 = X11Display::connect()) {
        if (wayland) request.notice("the Wayland compositor has no layer shell; the card is a window of its X server");
        return makeX11Surface(std::move(x11), std::move(request), loop);
    }
    if (!wayland || !wayland->windowShell) return noDisplay;
    request.notice("the Wayland compositor has no layer shell, and there is no X server; the card is a plain window");
    return makeWaylandSurface(std::move(wayland), std::move(request), loop);
}

Result<std::vector<Output>, NoDisplay> listOutputs() {
    std::vector<Output> outputs;
    const auto wayland = WaylandDisplay::connect();
    const auto x11 = wayland && wayland->layerShell ? nullptr : X11Display::connect();
    if (x11) {
        for (const X11Monitor& monitor : x11->monitors())
            outputs.push_back({monitor.name, monitor.area.width, monitor.area.height, x11->scale()});
    } else if (wayland) {
        for (const WaylandOutput& output : wayland->outputs())
            outputs.push_back({output.name, output.widthPx, output.heightPx, static_cast<double>(output.scale)});
    } else {
        return noDisplay;
    }
    return outputs;
}

}  // namespace orvel
