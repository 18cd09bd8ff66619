// Owns a Wayland client's object and destroys it in the way that its interface requires. Private to this folder.
#pragma once

#include <wayland-client.h>

#include <memory>

struct wl_cursor_theme;
struct wp_fractional_scale_manager_v1;
struct wp_fractional_scale_v1;
struct wp_viewport;
struct wp_viewporter;
struct xdg_surface;
struct xdg_toplevel;
struct xdg_wm_base;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

namespace orvel {

struct WaylandRelease {
    void operator()(wl_display*) const;
    void operator()(wl_registry*) const;
    void operator()(wl_compositor*) const;
    void operator()(wl_shm*) const;
    void operator()(wl_shm_pool*) const;
    void operator()(wl_buffer*) const;
    void operator()(wl_output*) const;
    void operator()(wl_seat*) const;
    void operator()(wl_pointer*) const;
    void operator()(wl_cursor_theme*) const;
    void operator()(wl_region*) const;
    void operator()(wl_surface*) const;
    void operator()(wl_callback*) const;
    void operator()(wp_fractional_scale_manager_v1*) const;
    void operator()(wp_fractional_scale_v1*) const;
    void operator()(wp_viewporter*) const;
    void operator()(wp_viewport*) const;
    void operator()(xdg_wm_base*) const;
    void operator()(xdg_surface*) const;
    void operator()(xdg_toplevel*) const;
    void operator()(zwlr_layer_shell_v1*) const;
    void operator()(zwlr_layer_surface_v1*) const;
};

template <class Object>
using WaylandPtr = std::unique_ptr<Object, WaylandRelease>;

}  // namespace orvel
