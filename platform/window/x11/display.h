// The connection to an X server and the properties of its screen. Private to this folder.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/release_with.h"
#include "platform/events/event_loop.h"
#include "platform/window/surface/placement.h"

namespace orvel {

/// Of replies, events and errors.
template <class Message>
using XcbPtr = std::unique_ptr<Message, ReleaseWith<std::free>>;

struct X11Monitor {
    std::string name;
    PixelRect area;
    bool primary = false;
};

/// The monitor of that name, or the main one; null when it isn't connected.
const X11Monitor* chosenMonitor(const std::vector<X11Monitor>& monitors, const std::optional<std::string>& name);

/// The part of a monitor inside the work area; the whole monitor when there is none.
PixelRect roomOf(const X11Monitor& monitor, const std::optional<PixelRect>& workArea);

class X11Display {
public:
    /// Null when no X server answers.
    static std::unique_ptr<X11Display> connect();

    /// From now on, the loop delivers events. `lost`: the connection has ended.
    void serve(EventLoop& loop, std::function<void(const xcb_generic_event_t&)> event, std::function<void()> lost);

    xcb_connection_t* connection() const { return connection_.get(); }
    const xcb_screen_t& screen() const { return *screen_; }
    xcb_atom_t atom(std::string_view name) const;
    std::string property(xcb_window_t window, std::string_view name, xcb_atom_t type) const;

    /// The active monitors; the whole screen where the server doesn't list any.
    std::vector<X11Monitor> monitors() const;

    /// Pixels to the point: the resource Xft.dpi over 96; 1 without that resource.
    double scale() const;

    /// The screen less its panels, when a window manager says so.
    std::optional<PixelRect> workArea() const;

    /// Whether a compositing manager blends windows; from the first question on, events tell of changes.
    bool hasCompositingManager();

    // The events that tell of changed monitors, and of a compositing manager that came or went.
    bool isMonitorChange(const xcb_generic_event_t& event) const;
    bool isCompositingChange(const xcb_generic_event_t& event) const;

private:
    X11Display() = default;
    void deliverEvents();

    std::unique_ptr<xcb_connection_t, ReleaseWith<xcb_disconnect>> connection_;
    const xcb_screen_t* screen_ = nullptr;
    int screenNumber_ = 0;
    std::uint8_t monitorEvents_ = 0;    ///< the first event of the monitors' extension; 0 without it
    std::uint8_t selectionEvents_ = 0;  ///< likewise of the one that tells of selections
    std::map<std::string_view, xcb_atom_t> atoms_;
    xcb_atom_t compositingManager_ = XCB_ATOM_NONE;
    std::function<void(const xcb_generic_event_t&)> event_;
    std::function<void()> lost_;
    std::optional<EventLoop::Watch> watch_;
};

}  // namespace orvel
