#include "designer/placing/monitors.h"

#include <algorithm>

#include "platform/events/event_loop.h"
#include "platform/window/open_window_system.h"

namespace orvel::designer {

namespace {

bool overlap(const Rect& a, const Rect& b) {
    return a.origin.x < b.origin.x + b.size.width && b.origin.x < a.origin.x + a.size.width &&
           a.origin.y < b.origin.y + b.size.height && b.origin.y < a.origin.y + a.size.height;
}

void separate(std::vector<Monitor>& monitors) {
    const auto liesOnAnother = [&](const Monitor& one) {
        return std::ranges::any_of(
            monitors, [&](const Monitor& other) { return &one != &other && overlap(one.area, other.area); });
    };
    if (std::ranges::none_of(monitors, liesOnAnother)) return;
    double x = 0;
    for (Monitor& monitor : monitors) {
        monitor.area.origin = {x, 0};
        x += monitor.area.size.width;
    }
}

}  // namespace

std::vector<Monitor> monitors(const std::vector<Output>& outputs, OutputOrigins origins) {
    std::vector<Monitor> monitors;
    for (const Output& output : outputs) {
        const double scale = output.scale > 0 ? output.scale : 1;
        const double originScale = origins == OutputOrigins::pixels ? scale : 1;
        monitors.push_back({output.name,
                            {{output.area.x / originScale, output.area.y / originScale},
                             {output.area.width / scale, output.area.height / scale}},
                            output.primary});
    }
    separate(monitors);
    // Somebody has to be the main one.
    if (!monitors.empty() && std::ranges::none_of(monitors, &Monitor::isMain)) monitors.front().isMain = true;
    return monitors;
}

std::vector<Monitor> monitorsHere() {
    EventLoop loop;
    const auto windows = openWindowSystem(loop);
    if (!windows) return {};
    const WindowSystems systems = windowSystems();
    const bool isX11 = systems.x11 && !systems.layerShell;
    return monitors((*windows)->outputs(), isX11 ? OutputOrigins::pixels : OutputOrigins::points);
}

}  // namespace orvel::designer
