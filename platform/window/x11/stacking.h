// Keeps windows in their place among the others: directly above the desktop's own window (wallpaper, icons) and below
// all others, or above them all. Private to this folder.
#pragma once

#include <map>

#include "platform/events/back_off.h"
#include "platform/events/timer.h"
#include "platform/window/surface/placement.h"
#include "platform/window/x11/hints.h"

namespace orvel {

class X11Stacking {
public:
    /// The root window's substructure events must have been selected.
    X11Stacking(X11Display& display, EventLoop& loop);

    /// Keeps that window in its place until it is released. Other override-redirect windows may lie between, so that
    /// several programs that want the same place don't fight for it.
    void keep(xcb_window_t window, Layer layer, Keeper keeper);
    void release(xcb_window_t window) { kept_.erase(window); }

    /// Of any window.
    void handle(const xcb_generic_event_t& event);

    X11Display& display() const { return display_; }

private:
    enum class Kind { desktop, ordinary, unmanaged };
    struct Kept {
        Layer layer;
        Keeper keeper;
    };

    bool mayHaveMoved(const xcb_generic_event_t& event);
    void settle();
    using Toplevels = std::vector<xcb_window_t>;  ///< from the lowest to the highest
    bool restack(xcb_window_t window, const Kept& kept, const Toplevels& order) const;
    bool restackItself(xcb_window_t window, Layer layer, const Toplevels& order) const;
    bool askWindowManager(xcb_window_t window, const Toplevels& order) const;
    bool isKind(Kind kind, xcb_window_t toplevel) const;
    Kind kindOf(xcb_window_t toplevel, bool overrideRedirect) const;
    bool isDesktop(xcb_window_t client) const;
    XcbPtr<xcb_query_tree_reply_t> tree(xcb_window_t window) const;
    xcb_window_t parentOf(xcb_window_t window) const;
    std::optional<PixelRect> areaOf(xcb_window_t toplevel) const;
    std::vector<xcb_window_t> childrenOf(xcb_window_t window) const;
    std::optional<xcb_window_t> clientIn(xcb_window_t frame, int depth) const;

    X11Display& display_;
    xcb_window_t root_;
    std::map<xcb_window_t, Kept> kept_;
    std::map<xcb_window_t, Kind> kinds_;  ///< of the mapped toplevels, which are the root's children
    xcb_window_t moved_ = XCB_WINDOW_NONE, above_ = XCB_WINDOW_NONE;  ///< the latest restacking that an event told of
    DelayTimer next_;
    BackOff backOff_;
};

}  // namespace orvel
