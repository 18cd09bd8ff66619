#include "platform/window/wayland/owner.h"

#include <fractional-scale-v1.h>
#include <layer_shell.h>
#include <viewporter.h>
#include <wayland-cursor.h>
#include <xdg-shell.h>

namespace orvel {

void WaylandRelease::operator()(wl_display* object) const {
    wl_display_disconnect(object);
}

void WaylandRelease::operator()(wl_registry* object) const {
    wl_registry_destroy(object);
}

void WaylandRelease::operator()(wl_compositor* object) const {
    wl_compositor_destroy(object);
}

void WaylandRelease::operator()(wl_shm* object) const {
    wl_shm_destroy(object);
}

void WaylandRelease::operator()(wl_shm_pool* object) const {
    wl_shm_pool_destroy(object);
}

void WaylandRelease::operator()(wl_buffer* object) const {
    wl_buffer_destroy(object);
}

void WaylandRelease::operator()(wl_seat* object) const {
    wl_seat_destroy(object);
}

void WaylandRelease::operator()(wl_pointer* object) const {
    wl_pointer_destroy(object);
}

void WaylandRelease::operator()(wl_cursor_theme* object) const {
    wl_cursor_theme_destroy(object);
}

void WaylandRelease::operator()(wl_region* object) const {
    wl_region_destroy(object);
}

void WaylandRelease::operator()(wl_surface* object) const {
    wl_surface_destroy(object);
}

void WaylandRelease::operator()(wl_callback* object) const {
    wl_callback_destroy(object);
}

void WaylandRelease::operator()(wp_fractional_scale_manager_v1* object) const {
    wp_fractional_scale_manager_v1_destroy(object);
}

void WaylandRelease::operator()(wp_fractional_scale_v1* object) const {
    wp_fractional_scale_v1_destroy(object);
}

void WaylandRelease::operator()(wp_viewporter* object) const {
    wp_viewporter_destroy(object);
}

void WaylandRelease::operator()(wp_viewport* object) const {
    wp_viewport_destroy(object);
}

void WaylandRelease::operator()(xdg_wm_base* object) const {
    xdg_wm_base_destroy(object);
}

void WaylandRelease::operator()(xdg_surface* object) const {
    xdg_surface_destroy(object);
}

void WaylandRelease::operator()(xdg_toplevel* object) const {
    xdg_toplevel_destroy(object);
}

void WaylandRelease::operator()(zwlr_layer_surface_v1* object) const {
    zwlr_layer_surface_v1_destroy(object);
}

// The first versions of these two interfaces have no such request; then only the client's side is destroyed.

void WaylandRelease::operator()(wl_output* object) const {
    if (wl_output_get_version(object) >= WL_OUTPUT_RELEASE_SINCE_VERSION)
        wl_output_release(object);
    else
        wl_output_destroy(object);
}

void WaylandRelease::operator()(zwlr_layer_shell_v1* object) const {
    if (zwlr_layer_shell_v1_get_version(object) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(object);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object));
}

}  // namespace orvel
