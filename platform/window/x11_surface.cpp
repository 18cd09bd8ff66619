#include "platform/window/x11_surface.h"

#include <cmath>

#include "platform/window/x11_window.h"

namespace orvel {
namespace {

class X11Surface final : public DesktopSurface {
public:
    X11Surface(std::unique_ptr<X11Display> display, SurfaceRequest request, EventLoop& loop)
        : request_(std::move(request)), display_(std::move(display)) {
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(display_->connection(), display_->screen().root, XCB_CW_EVENT_MASK, &events);
        resources_ = display_->atom("RESOURCE_MANAGER");
        workArea_ = display_->atom("_NET_WORKAREA");
        deleteWindow_ = display_->atom("WM_DELETE_WINDOW");
        scale_ = display_->scale();
        chooseTransparency();
        arrange();
        if (const auto& name = request_.placement.output; name && !window_)
            request_.notice("there is no output " + *name + " now; the card appears when it is there");
        display_->serve(
            loop, [this](const xcb_generic_event_t& event) { handle(event); },
            [this] { request_.ended("the X server has gone away"); });
    }

    void contentChanged(const std::string& title) override {
        request_.title = title;
        if (!window_) return;
        window_->setTitle(title);
        window_->draw(request_);
    }

private:
    void handle(const xcb_generic_event_t& event) {
        if (display_->isMonitorChange(event)) return arrange();
        if (display_->isCompositingChange(event)) return chooseTransparency();
        switch (event.response_type & 0x7F) {
            case XCB_CONFIGURE_NOTIFY:
                if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == display_->screen().root)
                    arrange();
                break;
            case XCB_PROPERTY_NOTIFY:
                propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
                break;
            case XCB_CLIENT_MESSAGE: told(reinterpret_cast<const xcb_client_message_event_t&>(event)); break;
        }
    }

    void propertyChanged(const xcb_property_notify_event_t& event) {
        if (event.atom == workArea_) arrange();
        if (event.atom != resources_) return;
        const double scale = display_->scale();
        if (scale == scale_) return;
        scale_ = scale;
        replace();
    }

    void told(const xcb_client_message_event_t& event) {
        if (event.format == 32 && event.data.data32[0] == deleteWindow_ && window_ && event.window == window_->id())
            request_.ended(std::nullopt);
    }

    // It decides about the window's visual, which is for life.
    void chooseTransparency() {
        const auto transparency = display_->hasCompositingManager() ? Transparency::blended : Transparency::cut;
        if (transparency == transparency_) return;
        transparency_ = transparency;
        if (window_) replace();
    }

    std::optional<PixelRect> area() const {
        const auto monitors = display_->monitors();
        const auto& name = request_.placement.output;
        const X11Monitor* chosen = nullptr;
        for (const X11Monitor& monitor : monitors)
            if (name ? monitor.name == *name : !chosen || (monitor.primary && !chosen->primary)) chosen = &monitor;
        if (!chosen) return std::nullopt;

        const auto pixels = [this](double points) { return static_cast<int>(std::lround(points * scale_)); };
        PixelRect room = chosen->area;
        if (const auto workArea = display_->workArea()) {
            const PixelRect free = intersection(room, *workArea);
            if (free.width > 0 && free.height > 0) room = free;
        }
        const PixelRect box{0, 0, pixels(request_.width), pixels(request_.height)};
        return placed(box, room, request_.placement.anchor, pixels(request_.placement.margin));
    }

    /// Brings the window to where it belongs now, or away when that is nowhere.
    void arrange() {
        const auto where = area();
        if (!where)
            window_.reset();
        else if (!window_)
            window_ = std::make_unique<X11Window>(*display_, request_, transparency_, scale_, *where);
        else if (window_->area() != *where)
            window_->move(where->x, where->y);
    }

    void replace() {
        window_.reset();
        arrange();
    }

    SurfaceRequest request_;
    std::unique_ptr<X11Display> display_;
    xcb_atom_t resources_;
    xcb_atom_t workArea_;
    xcb_atom_t deleteWindow_;
    double scale_;
    Transparency transparency_ = Transparency::cut;
    std::unique_ptr<X11Window> window_;
};

}  // namespace

std::unique_ptr<DesktopSurface> makeX11Surface(std::unique_ptr<X11Display> display, SurfaceRequest request,
                                               EventLoop& loop) {
    return std::make_unique<X11Surface>(std::move(display), std::move(request), loop);
}

}  // namespace orvel
