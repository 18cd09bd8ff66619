#include "platform/window/wayland/role.h"

#include <cmath>
#include <utility>

#include <layer_shell.h>
#include <xdg-shell.h>

namespace orvel {
namespace {

std::uint32_t edges(Anchor anchor) {
    constexpr std::uint32_t horizontal[]{ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT, 0, ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT};
    constexpr std::uint32_t vertical[]{ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP, 0, ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM};
    return horizontal[anchor.horizontal + 1] | vertical[anchor.vertical + 1];
}

zwlr_layer_shell_v1_layer wireLayer(Layer layer) {
    switch (layer) {
        case Layer::background: return ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND;
        case Layer::bottom: return ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM;
        case Layer::top: return ZWLR_LAYER_SHELL_V1_LAYER_TOP;
        case Layer::overlay: return ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY;
    }
    return ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM;
}

class LayerRole final : public WaylandRole {
public:
    LayerRole(const WaylandDisplay& display, wl_surface* surface, const SurfaceRequest& request,
              const WaylandOutput* output, Handlers handlers)
        // A namespace of its own: KWin takes "desktop" and the like for the desktop's own windows, of which it brings
        // the one that was clicked in front of the others.
        : handlers_(std::move(handlers)),
          layer_(zwlr_layer_shell_v1_get_layer_surface(display.layerShell.get(), surface,
                                                       output ? output->handle() : nullptr,
                                                       wireLayer(request.placement.layer), request.program.c_str())) {
        zwlr_layer_surface_v1_add_listener(layer_.get(), &listener, this);
        zwlr_layer_surface_v1_set_size(layer_.get(), static_cast<std::uint32_t>(points(request.width)),
                                       static_cast<std::uint32_t>(points(request.height)));
        place(request.placement.anchor, request.placement.margin);
        zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), 0);
        zwlr_layer_surface_v1_set_keyboard_interactivity(layer_.get(),
                                                         ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    }

    void place(Anchor anchor, Margin margin) override {
        const int x = points(margin.x);
        const int y = points(margin.y);
        zwlr_layer_surface_v1_set_anchor(layer_.get(), edges(anchor));
        zwlr_layer_surface_v1_set_margin(layer_.get(), y, x, y, x);
    }

private:
    static int points(double length) { return static_cast<int>(std::lround(length)); }

    static const zwlr_layer_surface_v1_listener listener;

    Handlers handlers_;
    WaylandPtr<zwlr_layer_surface_v1> layer_;
};

const zwlr_layer_surface_v1_listener LayerRole::listener{
    .configure =
        [](void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t, std::uint32_t) {
            zwlr_layer_surface_v1_ack_configure(layer, serial);
            static_cast<LayerRole*>(data)->handlers_.configured();
        },
    .closed =
        [](void* data, zwlr_layer_surface_v1*) {
            const auto closed = static_cast<LayerRole*>(data)->handlers_.closed;  // a copy: the call ends this object
            closed();
        },
};

class WindowRole final : public WaylandRole {
public:
    WindowRole(const WaylandDisplay& display, wl_surface* surface, const SurfaceRequest& request, Handlers handlers)
        : handlers_(std::move(handlers)),
          shellSurface_(xdg_wm_base_get_xdg_surface(display.windowShell.get(), surface)),
          window_(xdg_surface_get_toplevel(shellSurface_.get())) {
        const int width = static_cast<int>(std::lround(request.width));
        const int height = static_cast<int>(std::lround(request.height));
        xdg_surface_add_listener(shellSurface_.get(), &surfaceListener, this);
        xdg_toplevel_add_listener(window_.get(), &windowListener, this);
        xdg_toplevel_set_app_id(window_.get(), request.program.c_str());
        xdg_toplevel_set_min_size(window_.get(), width, height);
        xdg_toplevel_set_max_size(window_.get(), width, height);
    }

    void setTitle(const std::string& title) override { xdg_toplevel_set_title(window_.get(), title.c_str()); }

private:
    static const xdg_surface_listener surfaceListener;
    static const xdg_toplevel_listener windowListener;

    Handlers handlers_;
    WaylandPtr<xdg_surface> shellSurface_;
    WaylandPtr<xdg_toplevel> window_;
};

const xdg_surface_listener WindowRole::surfaceListener{
    .configure =
        [](void* data, xdg_surface* surface, std::uint32_t serial) {
            xdg_surface_ack_configure(surface, serial);
            static_cast<WindowRole*>(data)->handlers_.configured();
        },
};

const xdg_toplevel_listener WindowRole::windowListener{
    .configure = [](void*, xdg_toplevel*, std::int32_t, std::int32_t, wl_array*) {},
    .close =
        [](void* data, xdg_toplevel*) {
            const auto closed = static_cast<WindowRole*>(data)->handlers_.closed;
            closed();
        },
    .configure_bounds = [](void*, xdg_toplevel*, std::int32_t, std::int32_t) {},
    .wm_capabilities = [](void*, xdg_toplevel*, wl_array*) {},
};

}  // namespace

std::unique_ptr<WaylandRole> makeLayerRole(const WaylandDisplay& display, wl_surface* surface,
                                           const SurfaceRequest& request, const WaylandOutput* output,
                                           WaylandRole::Handlers handlers) {
    return std::make_unique<LayerRole>(display, surface, request, output, std::move(handlers));
}

std::unique_ptr<WaylandRole> makeWindowRole(const WaylandDisplay& display, wl_surface* surface,
                                            const SurfaceRequest& request, WaylandRole::Handlers handlers) {
    return std::make_unique<WindowRole>(display, surface, request, std::move(handlers));
}

}  // namespace orvel
