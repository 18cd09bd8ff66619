#include "platform/window/wayland/display.h"

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
        const auto bind = [&]<class T>(WaylandPtr<T>& to, const wl_interface& what, std::uint32_t known) {
            if (to || std::string_view(interface) != what.name) return;
            to.reset(static_cast<T*>(wl_registry_bind(registry, id, &what, std::min(offered, known))));
        };
        bind(self.compositor, wl_compositor_interface, 4);
        bind(self.sharedMemory, wl_shm_interface, 1);
        bind(self.layerShell, zwlr_layer_shell_v1_interface, 4);
        bind(self.windowShell, xdg_wm_base_interface, 1);
        const bool hadSeat = self.seat != nullptr;
        bind(self.seat, wl_seat_interface, 1);
        if (!hadSeat && self.seat) wl_seat_add_listener(self.seat.get(), &seatListener, data);
        bind(self.viewporter, wp_viewporter_interface, 1);
        bind(self.fractionalScales, wp_fractional_scale_manager_v1_interface, 1);
        if (std::string_view(interface) == "org_kde_plasma_shell") self.isKWin = true;  // nobody else offers it

        WaylandPtr<wl_output> output;
        bind(output, wl_output_interface, 4);
        if (!output) return;
        wl_output_add_listener(output.get(), &outputListener, data);
        self.outputs_.push_back({.id = id, .proxy = std::move(output), .name = {}});
    }

    static void removed(void* data, wl_registry*, std::uint32_t id) {
        WaylandDisplay& self = display(data);
        const auto output = std::ranges::find(self.outputs_, id, &WaylandOutput::id);
        if (output == self.outputs_.end()) return;
        self.outputs_.erase(output);
        if (self.outputsChanged_) self.outputsChanged_();
    }

    static WaylandOutput& find(void* data, wl_output* output) {
        return *std::ranges::find(display(data).outputs_, output, &WaylandOutput::handle);
    }
    static void geometry(void* data, wl_output* output, std::int32_t x, std::int32_t y, std::int32_t, std::int32_t,
                         std::int32_t, const char*, const char*, std::int32_t) {
        find(data, output).x = x;
        find(data, output).y = y;
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

    static void capabilities(void* data, wl_seat*, std::uint32_t has) {
        display(data).seatHasPointer = (has & WL_SEAT_CAPABILITY_POINTER) != 0;
        if (display(data).pointerCameOrWent) display(data).pointerCameOrWent();
    }

    static void ping(void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); }

    static constexpr wl_registry_listener registryListener{.global = added, .global_remove = removed};
    static constexpr wl_seat_listener seatListener{.capabilities = capabilities,
                                                   .name = [](void*, wl_seat*, const char*) {}};
    static constexpr xdg_wm_base_listener windowShellListener{.ping = ping};
    static constexpr wl_output_listener outputListener{
        .geometry = geometry,
        .mode = mode,
        .done = done,
        .scale = scale,
        .name = name,
        .description = [](void*, wl_output*, const char*) {},
    };
};

std::unique_ptr<WaylandDisplay> WaylandDisplay::connect() {
    auto self = std::unique_ptr<WaylandDisplay>(new WaylandDisplay());
    // Otherwise the library would print lines of its own, in addition to the host's message.
    wl_log_set_handler_client([](const char*, va_list) {});
    self->display_.reset(wl_display_connect(nullptr));
    if (!self->display_) return nullptr;
    self->registry_.reset(wl_display_get_registry(self->display_.get()));
    wl_registry_add_listener(self->registry_.get(), &Events::registryListener, self.get());
    // The first round trip lists the interfaces, the second one the outputs' properties.
    for (int round = 0; round < 2; ++round)
        if (wl_display_roundtrip(self->display_.get()) < 0) return nullptr;
    if (!self->compositor || !self->sharedMemory) return nullptr;
    if (self->windowShell) xdg_wm_base_add_listener(self->windowShell.get(), &Events::windowShellListener, nullptr);
    return self;
}

void WaylandDisplay::serve(EventLoop& loop, std::function<void()> outputsChanged,
                           std::function<void(std::string)> lost) {
    outputsChanged_ = std::move(outputsChanged);
    lost_ = std::move(lost);
    watch_.emplace(loop.watch(
        wl_display_get_fd(display_.get()),
        [this] {
            if (wl_display_dispatch(display_.get()) < 0) reportLoss();
        },
        [this] {
            if (wl_display_dispatch_pending(display_.get()) < 0 ||
                (wl_display_flush(display_.get()) < 0 && errno != EAGAIN))
                reportLoss();
        }));
}

void WaylandDisplay::reportLoss() {
    watch_.reset();
    const wl_interface* interface = nullptr;
    if (wl_display_get_error(display_.get()) != EPROTO) return lost_("the Wayland compositor has gone away");
    const std::uint32_t code = wl_display_get_protocol_error(display_.get(), &interface, nullptr);
    lost_("the Wayland compositor refused a request (" +
          std::string(interface ? interface->name : "unknown interface") + ", error " + std::to_string(code) + ")");
}

const WaylandOutput* WaylandDisplay::outputNamed(const std::string& name) const {
    const auto output = std::ranges::find(outputs_, name, &WaylandOutput::name);
    return output == outputs_.end() ? nullptr : &*output;
}

const WaylandOutput* WaylandDisplay::outputWithId(std::uint32_t id) const {
    const auto output = std::ranges::find(outputs_, id, &WaylandOutput::id);
    return output == outputs_.end() ? nullptr : &*output;
}

}  // namespace orvel
