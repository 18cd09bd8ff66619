// The seat's pointer. Its events are requested only when a surface handles clicks. Private to this folder.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "platform/window/wayland/display.h"

namespace orvel {

class WaylandPointer {
public:
    explicit WaylandPointer(WaylandDisplay& display);
    ~WaylandPointer();
    WaylandPointer(const WaylandPointer&) = delete;

    /// Calls `clicked` for clicks with the first button on that surface. The pointer then has the shape of a hand.
    void listen(wl_surface* surface, std::function<void()> clicked);
    void forget(wl_surface* surface);

private:
    struct Events;
    void getOrRelease();
    void showHand(std::uint32_t serial);
    void leave();

    WaylandDisplay& display_;
    std::map<wl_surface*, std::function<void()>> clicked_;
    wl_surface* under_ = nullptr;  ///< the surface below the pointer
    bool isPressed_ = false;
    WaylandPtr<wl_pointer> pointer_;
    WaylandPtr<wl_cursor_theme> theme_;  ///< while the pointer is on a surface
    WaylandPtr<wl_surface> image_;
};

}  // namespace orvel
