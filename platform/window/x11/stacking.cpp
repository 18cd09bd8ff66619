#include "platform/window/x11/stacking.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace orvel {
namespace {

constexpr int deepestClient = 3;  // frame, its inner frames, client

template <class Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

}  // namespace

X11Stacking::X11Stacking(X11Display& display, EventLoop& loop)
    : display_(display), root_(display.screen().root), next_(loop, [this] { settle(); }) {
    xcb_connection_t* const x = display_.connection();
    const auto toplevels = childrenOf(root_);
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    for (const xcb_window_t each : toplevels) cookies.push_back(xcb_get_window_attributes(x, each));
    for (std::size_t i = 0; i < toplevels.size(); ++i) {
        const XcbPtr<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(x, cookies[i], nullptr));
        if (reply && reply->map_state != XCB_MAP_STATE_UNMAPPED)
            kinds_[toplevels[i]] = kindOf(toplevels[i], reply->override_redirect);
    }
}

void X11Stacking::keep(xcb_window_t window, Layer layer, Keeper keeper) {
    const auto& kept = kept_[window] = {layer, keeper};
    restack(window, kept, childrenOf(root_));
}

void X11Stacking::handle(const xcb_generic_event_t& event) {
    if (mayHaveMoved(event) && !next_.isSet()) settle();
}

// When another program keeps restacking the same place, the next attempt waits longer.
void X11Stacking::settle() {
    const auto order = childrenOf(root_);
    bool anyMoved = false;
    for (const auto& [window, kept] : kept_)
        if (restack(window, kept, order)) anyMoved = true;
    if (anyMoved)
        next_.set(backOff_.next());
    else
        backOff_.reset();
}

bool X11Stacking::mayHaveMoved(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
        case XCB_CONFIGURE_NOTIFY: {
            const auto& configured = as<xcb_configure_notify_event_t>(event);
            if (configured.event != root_ || configured.window == root_) return false;
            // A dragged window reports its place in the stack with each step.
            const bool again = configured.window == moved_ && configured.above_sibling == above_;
            moved_ = configured.window;
            above_ = configured.above_sibling;
            return !again;
        }
        case XCB_MAP_NOTIFY: {
            const auto& mapped = as<xcb_map_notify_event_t>(event);
            if (mapped.event != root_) return false;
            kinds_[mapped.window] = kindOf(mapped.window, mapped.override_redirect);
            break;
        }
        case XCB_REPARENT_NOTIFY: {
            const auto& moved = as<xcb_reparent_notify_event_t>(event);
            if (moved.parent == root_)
                kinds_[moved.window] = kindOf(moved.window, moved.override_redirect);
            else
                kinds_.erase(moved.window);
            break;
        }
        case XCB_UNMAP_NOTIFY: kinds_.erase(as<xcb_unmap_notify_event_t>(event).window); return false;
        case XCB_CIRCULATE_NOTIFY: break;
        default: return false;
    }
    moved_ = XCB_WINDOW_NONE;
    return true;
}

// Whether the window was in the wrong place.
bool X11Stacking::restack(xcb_window_t window, const Kept& kept, const Toplevels& order) const {
    return kept.keeper == Keeper::itself ? restackItself(window, kept.layer, order) : askWindowManager(window, order);
}

bool X11Stacking::restackItself(xcb_window_t window, Layer layer, const Toplevels& order) const {
    const auto self = std::ranges::find(order, window);
    if (self == order.end()) return false;
    const auto isOrdinary = [this](xcb_window_t each) { return isKind(Kind::ordinary, each); };
    const auto isDesktop = [this](xcb_window_t each) { return isKind(Kind::desktop, each); };
    std::uint16_t mask = XCB_CONFIG_WINDOW_STACK_MODE;
    std::array<std::uint32_t, 2> values{};
    if (layer >= Layer::top) {
        if (std::none_of(self, order.end(), isOrdinary) && std::none_of(self, order.end(), isDesktop)) return false;
        values = {XCB_STACK_MODE_ABOVE};
    } else {
        const auto desktop = std::find_if(order.rbegin(), order.rend(), isDesktop);
        const auto lowest = desktop.base();
        if (lowest <= self && std::none_of(lowest, self, isOrdinary)) return false;
        if (desktop == order.rend()) {
            values = {XCB_STACK_MODE_BELOW};
        } else {
            mask |= XCB_CONFIG_WINDOW_SIBLING;
            values = {*desktop, XCB_STACK_MODE_ABOVE};
        }
    }
    xcb_configure_window(display_.connection(), window, mask, values.data());
    return true;
}

// The window manager keeps it below ordinary windows. Of several parts of the desktop, the one inside the other has to
// be above, which can't be true both ways round.
bool X11Stacking::askWindowManager(xcb_window_t window, const Toplevels& order) const {
    xcb_window_t toplevel = window;
    for (xcb_window_t parent = parentOf(toplevel); parent != root_; parent = parentOf(toplevel)) {
        if (parent == XCB_WINDOW_NONE) return false;
        toplevel = parent;
    }
    const auto self = std::ranges::find(order, toplevel);
    if (self == order.end()) return false;
    const auto area = areaOf(*self);
    const auto covers = [&](xcb_window_t each) {
        if (!isKind(Kind::desktop, each)) return false;
        const auto other = areaOf(each);
        return area && other && other != area && intersection(*area, *other) == area;
    };
    if (std::none_of(self + 1, order.end(), covers)) return false;
    constexpr std::uint32_t onPersonsBehalf = 2;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = display_.atom("_NET_RESTACK_WINDOW");
    message.data.data32[0] = onPersonsBehalf;
    message.data.data32[2] = XCB_STACK_MODE_ABOVE;
    xcb_send_event(display_.connection(), 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    return true;
}

bool X11Stacking::isKind(Kind kind, xcb_window_t toplevel) const {
    const auto known = kinds_.find(toplevel);
    return known != kinds_.end() && known->second == kind;
}

// Most window managers put a program's window into a frame of their own.
X11Stacking::Kind X11Stacking::kindOf(xcb_window_t toplevel, bool overrideRedirect) const {
    if (!overrideRedirect && isDesktop(toplevel)) return Kind::desktop;
    const auto client = clientIn(toplevel, deepestClient);
    if (client && isDesktop(*client)) return Kind::desktop;
    return client || !overrideRedirect ? Kind::ordinary : Kind::unmanaged;
}

bool X11Stacking::isDesktop(xcb_window_t client) const {
    const std::string types = display_.property(client, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
    xcb_atom_t first = XCB_ATOM_NONE;
    if (types.size() >= sizeof first) std::memcpy(&first, types.data(), sizeof first);
    return first != XCB_ATOM_NONE && first == display_.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
}

XcbPtr<xcb_query_tree_reply_t> X11Stacking::tree(xcb_window_t window) const {
    xcb_connection_t* const x = display_.connection();
    return XcbPtr<xcb_query_tree_reply_t>(xcb_query_tree_reply(x, xcb_query_tree(x, window), nullptr));
}

xcb_window_t X11Stacking::parentOf(xcb_window_t window) const {
    const auto reply = tree(window);
    return reply ? reply->parent : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

std::optional<PixelRect> X11Stacking::areaOf(xcb_window_t toplevel) const {
    xcb_connection_t* const x = display_.connection();
    const XcbPtr<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(x, xcb_get_geometry(x, toplevel), nullptr));
    if (!reply) return std::nullopt;
    return PixelRect{reply->x, reply->y, reply->width, reply->height};
}

std::vector<xcb_window_t> X11Stacking::childrenOf(xcb_window_t window) const {
    const auto reply = tree(window);
    if (!reply) return {};
    const xcb_window_t* const first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

// A window's number says which connection made it: what another one made is the program's.
std::optional<xcb_window_t> X11Stacking::clientIn(xcb_window_t frame, int depth) const {
    const auto maker = [mask = xcb_get_setup(display_.connection())->resource_id_mask](xcb_window_t window) {
        return window & ~mask;
    };
    const auto children = childrenOf(frame);
    for (const xcb_window_t child : children)
        if (maker(child) != maker(frame)) return child;
    if (depth > 1)
        for (const xcb_window_t child : children)
            if (const auto client = clientIn(child, depth - 1)) return client;
    return std::nullopt;
}

}  // namespace orvel
