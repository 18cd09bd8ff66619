#include "platform/window/x11/display.h"

#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace orvel {
namespace {

constexpr double standardDpi = 96;

// The atoms that this folder uses, fetched together; any other would cost a round trip of its own.
constexpr std::string_view usualAtoms[] = {
    "RESOURCE_MANAGER", "UTF8_STRING", "WM_DELETE_WINDOW",    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_NAME",     "_NET_WM_PID", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WORKAREA",
};

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atomOf(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie) {
    const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::optional<double> dpi(std::string_view resources) {
    constexpr std::string_view key = "Xft.dpi:";
    for (std::size_t at = 0; at < resources.size();) {
        const std::string_view line = resources.substr(at, resources.find('\n', at) - at);
        at += line.size() + 1;
        if (!line.starts_with(key)) continue;
        const std::size_t value = line.find_first_not_of(" \t", key.size());
        double number = 0;
        if (value != line.npos &&
            std::from_chars(line.data() + value, line.data() + line.size(), number).ec == std::errc())
            return number;
    }
    return std::nullopt;
}

}  // namespace

const X11Monitor* chosenMonitor(const std::vector<X11Monitor>& monitors, const std::optional<std::string>& name) {
    const X11Monitor* chosen = nullptr;
    for (const X11Monitor& monitor : monitors)
        if (name ? monitor.name == *name : !chosen || (monitor.primary && !chosen->primary)) chosen = &monitor;
    return chosen;
}

PixelRect roomOf(const X11Monitor& monitor, const std::optional<PixelRect>& workArea) {
    if (!workArea) return monitor.area;
    const PixelRect room = intersection(monitor.area, *workArea);
    return room.width > 0 && room.height > 0 ? room : monitor.area;
}

std::unique_ptr<X11Display> X11Display::connect() {
    auto self = std::unique_ptr<X11Display>(new X11Display());
    self->connection_.reset(xcb_connect(nullptr, &self->screenNumber_));
    if (xcb_connection_has_error(self->connection())) return nullptr;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(self->connection()));
    for (int i = 0; i < self->screenNumber_ && screens.rem > 1; ++i) xcb_screen_next(&screens);
    self->screen_ = screens.data;

    for (xcb_extension_t* each : {&xcb_randr_id, &xcb_shape_id, &xcb_xfixes_id})
        xcb_prefetch_extension_data(self->connection(), each);
    std::array<xcb_intern_atom_cookie_t, std::size(usualAtoms)> cookies{};
    std::ranges::transform(usualAtoms, cookies.begin(),
                           [&](std::string_view name) { return askForAtom(self->connection(), name); });
    for (std::size_t i = 0; i < cookies.size(); ++i)
        self->atoms_[usualAtoms[i]] = atomOf(self->connection(), cookies[i]);

    // 1.5 is the first version that has monitors.
    const auto* const extension = xcb_get_extension_data(self->connection(), &xcb_randr_id);
    if (extension && extension->present) {
        const XcbPtr<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
            self->connection(), xcb_randr_query_version(self->connection(), 1, 5), nullptr));
        if (version && (version->major_version > 1 || version->minor_version >= 5)) {
            self->monitorEvents_ = extension->first_event;
            xcb_randr_select_input(self->connection(), self->screen().root, XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE);
        }
    }
    return self;
}

void X11Display::serve(EventLoop& loop, std::function<void(const xcb_generic_event_t&)> event,
                       std::function<void()> lost) {
    event_ = std::move(event);
    lost_ = std::move(lost);
    watch_.emplace(loop.watch(
        xcb_get_file_descriptor(connection()), [] {}, [this] { deliverEvents(); }));
}

// Called before each sleep, because waiting for a reply may have read events as well.
void X11Display::deliverEvents() {
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection())}) event_(*event);
    xcb_flush(connection());
    if (!xcb_connection_has_error(connection())) return;
    watch_.reset();
    lost_();
}

xcb_atom_t X11Display::atom(std::string_view name) const {
    const auto known = atoms_.find(name);
    return known != atoms_.end() ? known->second : atomOf(connection(), askForAtom(connection(), name));
}

std::string X11Display::property(xcb_window_t window, std::string_view name, xcb_atom_t type) const {
    constexpr std::uint32_t mostWords = 1 << 18;
    const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection(), xcb_get_property(connection(), 0, window, atom(name), type, 0, mostWords), nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<X11Monitor> X11Display::monitors() const {
    if (!monitorEvents_) return {{"screen", {0, 0, screen().width_in_pixels, screen().height_in_pixels}, true}};
    const XcbPtr<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(connection(), xcb_randr_get_monitors(connection(), screen().root, 1), nullptr));
    std::vector<X11Monitor> monitors;
    if (!reply) return monitors;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem;
         xcb_randr_monitor_info_next(&each)) {
        const xcb_randr_monitor_info_t& info = *each.data;
        const XcbPtr<xcb_get_atom_name_reply_t> name(
            xcb_get_atom_name_reply(connection(), xcb_get_atom_name(connection(), info.name), nullptr));
        if (!name || info.width == 0 || info.height == 0) continue;
        monitors.push_back(
            {{xcb_get_atom_name_name(name.get()), static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get()))},
             {info.x, info.y, info.width, info.height},
             info.primary != 0});
    }
    return monitors;
}

double X11Display::scale() const {
    const double scale =
        dpi(property(screen().root, "RESOURCE_MANAGER", XCB_ATOM_STRING)).value_or(standardDpi) / standardDpi;
    return scale >= 0.5 && scale <= 8 ? scale : 1;
}

std::optional<PixelRect> X11Display::workArea() const {
    const std::string bytes = property(screen().root, "_NET_WORKAREA", XCB_ATOM_CARDINAL);
    std::int32_t area[4];  // of the first desktop
    if (bytes.size() < sizeof area) return std::nullopt;
    std::memcpy(area, bytes.data(), sizeof area);
    return PixelRect{area[0], area[1], area[2], area[3]};
}

bool X11Display::hasCompositingManager() {
    xcb_connection_t* const x = connection();
    if (!compositingManager_) {
        compositingManager_ = atom("_NET_WM_CM_S" + std::to_string(screenNumber_));
        const auto* const extension = xcb_get_extension_data(x, &xcb_xfixes_id);
        if (extension && extension->present) {
            selectionEvents_ = extension->first_event;
            const XcbPtr<xcb_xfixes_query_version_reply_t> version(
                xcb_xfixes_query_version_reply(x, xcb_xfixes_query_version(x, 5, 0), nullptr));
            xcb_xfixes_select_selection_input(x, screen().root, compositingManager_,
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                                  XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                                  XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
        }
    }
    const XcbPtr<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(x, xcb_get_selection_owner(x, compositingManager_), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

bool X11Display::isCompositingChange(const xcb_generic_event_t& event) const {
    return selectionEvents_ && (event.response_type & 0x7F) == selectionEvents_ + XCB_XFIXES_SELECTION_NOTIFY;
}

bool X11Display::isMonitorChange(const xcb_generic_event_t& event) const {
    return monitorEvents_ && (event.response_type & 0x7F) == monitorEvents_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY;
}

}  // namespace orvel
