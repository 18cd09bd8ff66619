#include "platform/window/x11/hints.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "platform/language/sentence.h"

namespace orvel {
namespace {

// Window managers that compose the screen by themselves and draw what they don't manage above everything else. Several
// desktops' are built on the second one.
constexpr std::string_view drawUnmanagedOnTop[] = {"KWin", "Mutter", "GNOME Shell", "Muffin", "BudgieWM", "Weston WM"};

std::optional<xcb_window_t> windowIn(const std::string& bytes) {
    xcb_window_t window = XCB_WINDOW_NONE;
    if (bytes.size() < sizeof window) return std::nullopt;
    std::memcpy(&window, bytes.data(), sizeof window);
    return window;
}

// Empty without one.
std::string nameOf(const X11Display& display, xcb_window_t windowManager) {
    if (windowManager == XCB_WINDOW_NONE) return {};
    return display.property(windowManager, "_NET_WM_NAME", display.atom("UTF8_STRING"));
}

bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != text.npos;
}

class Properties {
public:
    Properties(const X11Display& display, xcb_window_t window) : display_(display), window_(window) {}

    xcb_atom_t atom(std::string_view name) const { return display_.atom(name); }

    void set(std::string_view property, xcb_atom_t type, std::initializer_list<std::uint32_t> values) const {
        xcb_change_property(display_.connection(), XCB_PROP_MODE_REPLACE, window_, atom(property), type, 32,
                            static_cast<std::uint32_t>(values.size()), values.begin());
    }

    void setText(xcb_atom_t property, xcb_atom_t type, std::string_view text) const {
        xcb_change_property(display_.connection(), XCB_PROP_MODE_REPLACE, window_, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    }

private:
    const X11Display& display_;
    xcb_window_t window_;
};

void askWindowManager(const Properties& window, const PixelRect& area) {
    const auto atom = [&](std::string_view name) { return window.atom(name); };
    window.set("_NET_WM_STATE", XCB_ATOM_ATOM,
               {atom("_NET_WM_STATE_BELOW"), atom("_NET_WM_STATE_STICKY"), atom("_NET_WM_STATE_SKIP_TASKBAR"),
                atom("_NET_WM_STATE_SKIP_PAGER")});
    window.set("_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {0xFFFFFFFF});  // on all of them
    // The hints by which the first window managers were told to leave decorations away.
    constexpr std::uint32_t hasDecorations = 2;
    window.set("_MOTIF_WM_HINTS", atom("_MOTIF_WM_HINTS"), {hasDecorations, 0, 0, 0, 0});
    window.set("WM_PROTOCOLS", XCB_ATOM_ATOM, {atom("WM_DELETE_WINDOW")});
    constexpr std::uint32_t saysInput = 1;
    window.set("WM_HINTS", XCB_ATOM_WM_HINTS, {saysInput, 0 /* takes no keys */, 0, 0, 0, 0, 0, 0, 0});
    constexpr std::uint32_t personsPosition = 1, leastSize = 16, largestSize = 32;
    const auto width = static_cast<std::uint32_t>(area.width);
    const auto height = static_cast<std::uint32_t>(area.height);
    window.set("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS,
               {personsPosition | leastSize | largestSize, 0, 0, 0, 0, width, height, width, height, 0, 0, 0, 0, 0, 0,
                0, 0, 0});
}

}  // namespace

xcb_window_t findWindowManager(const X11Display& display) {
    // One that has gone leaves the root's word of it behind, but not its own window, which says the same.
    const auto read = [&](xcb_window_t window) {
        return windowIn(display.property(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW));
    };
    const auto window = read(display.screen().root);
    return window && read(*window) == window ? *window : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

Keeper chooseKeeper(const X11Display& display, xcb_window_t windowManager) {
    const std::string name = nameOf(display, windowManager);
    const bool drawsOnTop = std::ranges::any_of(drawUnmanagedOnTop, [&](auto each) { return contains(name, each); });
    return drawsOnTop ? Keeper::windowManager : Keeper::itself;
}

std::string limitsInsideWayland(const X11Display& display, xcb_window_t windowManager) {
    const std::string name = nameOf(display, windowManager);
    if (contains(name, "Weston"))
        return sentence(
            "the Wayland compositor has no layer shell; cards are windows of its X server, which lie above older "
            "windows, keep clicks to themselves and stay on one workspace");
    return sentence(
        "the Wayland compositor has no layer shell; cards are windows of its X server, which may give a monitor that "
        "comes back another name");
}

void describe(const X11Display& display, xcb_window_t id, const SurfaceRequest& request, Keeper keeper,
              const PixelRect& area) {
    const Properties window(display, id);
    // Also tells compositing managers that it casts no shadow.
    window.set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {display.atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    window.set("_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(::getpid())});
    window.setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, request.program + '\0' + request.program + '\0');
    std::array<char, 256> host{};
    if (::gethostname(host.data(), host.size() - 1) == 0)
        window.setText(XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, host.data());
    if (keeper == Keeper::windowManager) askWindowManager(window, area);
}

void setTitle(const X11Display& display, xcb_window_t id, const std::string& title) {
    const Properties window(display, id);
    for (const xcb_atom_t property : {display.atom("_NET_WM_NAME"), static_cast<xcb_atom_t>(XCB_ATOM_WM_NAME)})
        window.setText(property, display.atom("UTF8_STRING"), title);
}

}  // namespace orvel
