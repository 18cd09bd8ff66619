#include "platform/window/wayland/output_room.h"

#include <utility>

#include <layer_shell.h>

namespace orvel {

struct OutputRoom::Events {
    static void configured(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t width,
                           std::uint32_t height) {
        auto& self = *static_cast<OutputRoom*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        const bool changes = self.width_ != width || self.height_ != height;
        self.width_ = width;
        self.height_ = height;
        if (changes) self.changed_();
    }

    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure = configured,
        .closed = [](void*, zwlr_layer_surface_v1*) {},  // with its output, whose removal is handled elsewhere
    };
};

OutputRoom::OutputRoom(const WaylandDisplay& display, const WaylandOutput& output, std::function<void()> changed)
    : output_(output.id),
      changed_(std::move(changed)),
      surface_(wl_compositor_create_surface(display.compositor.get())) {
    constexpr std::uint32_t everyEdge = ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT |
                                        ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM;
    layer_.reset(zwlr_layer_shell_v1_get_layer_surface(display.layerShell.get(), surface_.get(), output.handle(),
                                                       ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND, "room"));
    zwlr_layer_surface_v1_add_listener(layer_.get(), &Events::listener, this);
    zwlr_layer_surface_v1_set_size(layer_.get(), 0, 0);  // all that the anchors leave
    zwlr_layer_surface_v1_set_anchor(layer_.get(), everyEdge);
    zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), 0);  // clear of panels
    wl_surface_commit(surface_.get());
}

}  // namespace orvel
