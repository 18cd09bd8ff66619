#include "platform/window/wayland_display.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <string_view>

#include <fractional-scale-v1.h>
#include <layer_shell.h>
#include <viewporter.h>
#include <xdg-shell.h>

namespace orvel {

struct WaylandDisplay::Events {
    static WaylandDisplay& display(void* data) { return *static_cast<WaylandDisplay*>(data); }

    static void added(void* data, wl_registry* registry, std::uint32_t id, const char* interface,
                      std::uint32_t offered) {
        WaylandDisplay& self = display(data);
        const auto bind = [&](auto*& to, const wl_interface& what, std::uint32_t known) {
            if (to || std::string_view(interface) != what.name) return;
            void* const bound = wl_registry_bind(registry, id, &what, std::min(offered, known));
            to = static_cast<std::remove_reference_t<decltype(to)>>(bound);
        };
        bind(self.compositor, wl_compositor_interface, 4);
        bind(self.sharedMemory, wl_shm_interface, 1);
        bind(self.layerShell, zwlr_layer_shell_v1_interface, 4);
        bind(self.windowShell, xdg_wm_base_interface, 1);
        bind(self.viewporter, wp_viewporter_interface, 1);
        bind(self.fractionalScales, wp_fractional_scale_manager_v1_interface, 1);

        wl_output* output = nullptr;
        bind(output, wl_output_interface, 4);
        if (!output) return;
        wl_output_add_listener(output, &outputListener, data);
        self.outputs_.push_back({.id = id, .proxy = output, .name = {}});
    }

    static void removed(void* data, wl_registry*, std::uint32_t id) {
        WaylandDisplay& self = display(data);
        const auto output = std::ranges::find(self.outputs_, id, &WaylandOutput::id);
        if (output == self.outputs_.end()) return;
        destroy(output->proxy);
        self.outputs_.erase(output);
        if (self.outputsChanged_) self.outputsChanged_();
    }

    static WaylandOutput& find(void* data, wl_output* output) {
        return *std::ranges::find(display(data).outputs_, output, &WaylandOutput::proxy);
    }
    static void mode(void* data, wl_output* output, std::uint32_t flags, std::int32_t width, std::int32_t height,
                     std::int32_t) {
        if (!(flags & WL_OUTPUT_MODE_CURRENT)) return;
        find(data, output).widthPx = width;
        find(data, output).heightPx = height;
    }
    static void scale(void* data, wl_output* output, std::int32_t factor) {
        find(data, output).scale = std::max(factor, 1);
    }
    static void name(void* data, wl_output* output, const char* name) { find(data, output).name = name; }
    static void done(void* data, wl_output*) {
        if (display(data).outputsChanged_) display(data).outputsChanged_();
    }

    static void ping(void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }

    static void destroy(wl_output* output) {
        if (wl_output_get_version(output) >= WL_OUTPUT_RELEASE_SINCE_VERSION)
            wl_output_release(output);
        else
            wl_output_destroy(output);
    }

    static constexpr wl_registry_listener registryListener{.global = added, .global_remove = removed};
    static constexpr xdg_wm_base_listener windowShellListener{.ping = ping};
    static constexpr wl_output_listener outputListener{
        .geometry = [](void*, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                       const char*, const char*, std::int32_t) {},
        .mode = mode,
        .done = done,
        .scale = scale,
        .name = name,
        .description = [](void*, wl_output*, const char*) {},
    };
};

std::unique_ptr<WaylandDisplay> WaylandDisplay::connect() {
    auto self = std::unique_ptr<WaylandDisplay>(new WaylandDisplay());
    // The library would print lines of its own beside the one that the host says.
    wl_log_set_handler_client([](const char*, va_list) {});
    self->display_ = wl_display_connect(nullptr);
    if (!self->display_) return nullptr;
    self->registry_ = wl_display_get_registry(self->display_);
    wl_registry_add_listener(self->registry_, &Events::registryListener, self.get());
    // Once for what there is, once for what the outputs say of themselves.
    for (int round = 0; round < 2; ++round)
        if (wl_display_roundtrip(self->display_) < 0) return nullptr;
    if (!self->compositor || !self->sharedMemory) return nullptr;
    if (self->windowShell) xdg_wm_base_add_listener(self->windowShell, &Events::windowShellListener, nullptr);
    return self;
}

WaylandDisplay::~WaylandDisplay() {
    if (!display_) return;
    for (const WaylandOutput& output : outputs_) Events::destroy(output.proxy);
    if (layerShell && zwlr_layer_shell_v1_get_version(layerShell) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(layerShell);
    else if (layerShell)
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(layerShell));
    if (windowShell) xdg_wm_base_destroy(windowShell);
    if (viewporter) wp_viewporter_destroy(viewporter);
    if (fractionalScales) wp_fractional_scale_manager_v1_destroy(fractionalScales);
    if (sharedMemory) wl_shm_destroy(sharedMemory);
    if (compositor) wl_compositor_destroy(compositor);
    if (registry_) wl_registry_destroy(registry_);
    wl_display_disconnect(display_);
}

void WaylandDisplay::serve(EventLoop& loop, std::function<void()> outputsChanged,
                           std::function<void(std::string)> lost) {
    outputsChanged_ = std::move(outputsChanged);
    lost_ = std::move(lost);
    watch_.emplace(loop.watch(
        wl_display_get_fd(display_),
        [this] {
            if (wl_display_dispatch(display_) < 0) lose();
        },
        [this] {
            if (wl_display_dispatch_pending(display_) < 0 || (wl_display_flush(display_) < 0 && errno != EAGAIN))
                lose();
        }));
}

void WaylandDisplay::lose() {
    watch_.reset();
    const wl_interface* interface = nullptr;
    if (wl_display_get_error(display_) != EPROTO) return lost_("the Wayland compositor has gone away");
    const std::uint32_t code = wl_display_get_protocol_error(display_, &interface, nullptr);
    lost_("the Wayland compositor refused a request (" +
          std::string(interface ? interface->name : "unknown interface") + ", error " + std::to_string(code) + ")");
}

const WaylandOutput* WaylandDisplay::outputNamed(const std::string& name) const {
    const auto output = std::ranges::find(outputs_, name, &WaylandOutput::name);
    return output == outputs_.end() ? nullptr : &*output;
}

}  // namespace orvel
