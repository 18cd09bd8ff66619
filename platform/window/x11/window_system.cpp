#include "platform/window/x11/window_system.h"

#include <utility>

#include "platform/language/sentence.h"
#include "platform/window/x11/surface.h"

namespace orvel {
namespace {

class X11WindowSystem final : public WindowSystem {
public:
    X11WindowSystem(std::unique_ptr<X11Display> display, XServerOf whose, EventLoop& loop)
        : display_(selectEvents(std::move(display))), stacking_(*display_, loop), whose_(whose), loop_(loop) {
        resources_ = display_->atom("RESOURCE_MANAGER");
        workAreaAtom_ = display_->atom("_NET_WORKAREA");
        deleteWindow_ = display_->atom("WM_DELETE_WINDOW");
        windowManagerCheck_ = display_->atom("_NET_SUPPORTING_WM_CHECK");
        scale_ = display_->scale();
        monitors_ = display_->monitors();
        workArea_ = display_->workArea();
        transparency_ = display_->hasCompositingManager() ? Transparency::blended : Transparency::cut;
        windowManager_ = findWindowManager(*display_);
        keeperBelow_ = chooseKeeper(*display_, windowManager_);
    }

    void serve(Handlers handlers) override {
        handlers_ = std::move(handlers);
        if (whose_ == XServerOf::waylandCompositor) handlers_.notice(limitsInsideWayland(*display_, windowManager_));
        display_->serve(
            loop_, [this](const xcb_generic_event_t& event) { handle(event); },
            [this] { handlers_.ended(sentence("the X server has gone away")); });
    }

    std::vector<Output> outputs() const override {
        std::vector<Output> outputs;
        for (const X11Monitor& monitor : monitors_) {
            const PixelRect room = roomOf(monitor, workArea_);
            outputs.push_back({.name = monitor.name,
                               .area = monitor.area,
                               .scale = scale_,
                               .primary = &monitor == chosenMonitor(monitors_, std::nullopt),
                               .roomWidth = room.width / scale_,
                               .roomHeight = room.height / scale_});
        }
        return outputs;
    }

    std::unique_ptr<DesktopSurface> open(SurfaceRequest request) override {
        return std::make_unique<X11Surface>(
            X11Surface::Surroundings{stacking_, monitors_, workArea_, scale_, transparency_, keeperBelow_, surfaces_},
            std::move(request));
    }

private:
    static std::unique_ptr<X11Display> selectEvents(std::unique_ptr<X11Display> display) {
        constexpr std::uint32_t events =
            XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(display->connection(), display->screen().root, XCB_CW_EVENT_MASK, &events);
        return display;
    }

    void handle(const xcb_generic_event_t& event) {
        if (display_->isMonitorChange(event)) return arrange();
        if (display_->isCompositingChange(event)) return chooseTransparency();
        switch (event.response_type & 0x7F) {
            case XCB_CONFIGURE_NOTIFY:
                if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == display_->screen().root)
                    arrange();
                break;
            case XCB_PROPERTY_NOTIFY:
                handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
                break;
            case XCB_CLIENT_MESSAGE: handleMessage(reinterpret_cast<const xcb_client_message_event_t&>(event)); break;
            case XCB_BUTTON_RELEASE: handleRelease(reinterpret_cast<const xcb_button_release_event_t&>(event)); break;
            case XCB_DESTROY_NOTIFY:
                if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == windowManager_)
                    findAnotherKeeper();
                break;
        }
        stacking_.handle(event);
    }

    void handleProperty(const xcb_property_notify_event_t& event) {
        if (event.atom == workAreaAtom_) arrange();
        if (event.atom == windowManagerCheck_) findAnotherKeeper();
        if (event.atom != resources_) return;
        const double scale = display_->scale();
        if (std::exchange(scale_, scale) == scale) return;
        for (X11Surface* const surface : surfaces()) surface->replace();
        handlers_.outputsChanged();
    }

    void handleMessage(const xcb_client_message_event_t& event) {
        if (event.format == 32 && event.data.data32[0] == deleteWindow_ && surfaceOf(event.window))
            handlers_.ended(std::nullopt);
    }

    // The button's press has grabbed the pointer, so its release comes here wherever it happens.
    void handleRelease(const xcb_button_release_event_t& event) {
        X11Surface* const surface = surfaceOf(event.event);
        if (!surface || event.detail != XCB_BUTTON_INDEX_1) return;
        const PixelRect& area = surface->window()->area();
        const bool isInside =
            event.event_x >= 0 && event.event_y >= 0 && event.event_x < area.width && event.event_y < area.height;
        if (isInside) surface->click();
    }

    X11Surface* surfaceOf(xcb_window_t window) const {
        for (X11Surface* const surface : surfaces_)
            if (surface->window() && surface->window()->id() == window) return surface;
        return nullptr;
    }

    // It decides the windows' visual, which can't be changed later.
    void chooseTransparency() {
        const auto transparency = display_->hasCompositingManager() ? Transparency::blended : Transparency::cut;
        if (std::exchange(transparency_, transparency) == transparency) return;
        for (X11Surface* const surface : surfaces()) surface->replace();
    }

    // A window manager has started, ended or been replaced. Which windows it manages is decided when they are made.
    void findAnotherKeeper() {
        windowManager_ = findWindowManager(*display_);
        const Keeper keeper = chooseKeeper(*display_, windowManager_);
        if (std::exchange(keeperBelow_, keeper) == keeper) return;
        for (X11Surface* const surface : surfaces()) surface->replace();
    }

    void arrange() {
        monitors_ = display_->monitors();
        workArea_ = display_->workArea();
        for (X11Surface* const surface : surfaces()) surface->arrange();
        handlers_.outputsChanged();
    }

    // A copy, because handling one surface may end others.
    std::vector<X11Surface*> surfaces() const { return {surfaces_.begin(), surfaces_.end()}; }

    std::unique_ptr<X11Display> display_;
    X11Stacking stacking_;
    XServerOf whose_;
    EventLoop& loop_;
    Handlers handlers_;
    xcb_atom_t resources_;
    xcb_atom_t workAreaAtom_;
    xcb_atom_t deleteWindow_;
    xcb_atom_t windowManagerCheck_;
    xcb_window_t windowManager_;
    Keeper keeperBelow_;
    double scale_;
    std::vector<X11Monitor> monitors_;
    std::optional<PixelRect> workArea_;
    Transparency transparency_ = Transparency::cut;
    X11Surface::Register surfaces_;
};

}  // namespace

std::unique_ptr<WindowSystem> makeX11WindowSystem(std::unique_ptr<X11Display> display, XServerOf whose,
                                                  EventLoop& loop) {
    return std::make_unique<X11WindowSystem>(std::move(display), whose, loop);
}

}  // namespace orvel
