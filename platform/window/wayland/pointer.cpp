#include "platform/window/wayland/pointer.h"

#include <wayland-cursor.h>

#include <cstdlib>
#include <utility>

namespace orvel {
namespace {

constexpr std::uint32_t firstButton = 0x110;  // BTN_LEFT of the kernel's input event codes
constexpr int usualCursorSize = 24;

int cursorSize() {
    const char* const size = std::getenv("XCURSOR_SIZE");
    const int number = size ? std::atoi(size) : 0;
    return number > 0 && number <= 512 ? number : usualCursorSize;
}

}  // namespace

struct WaylandPointer::Events {
    static WaylandPointer& self(void* data) { return *static_cast<WaylandPointer*>(data); }

    static void entered(void* data, wl_pointer*, std::uint32_t serial, wl_surface* surface, wl_fixed_t, wl_fixed_t) {
        if (!self(data).clicked_.contains(surface)) return;
        self(data).under_ = surface;
        self(data).showHand(serial);
    }
    static void left(void* data, wl_pointer*, std::uint32_t, wl_surface*) { self(data).leave(); }

    // A click is a press and a release on the same surface.
    static void button(void* data, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t button,
                       std::uint32_t state) {
        if (button != firstButton || !self(data).under_) return;
        const bool wasPressed = std::exchange(self(data).isPressed_, state == WL_POINTER_BUTTON_STATE_PRESSED);
        const auto found = self(data).clicked_.find(self(data).under_);
        if (state != WL_POINTER_BUTTON_STATE_RELEASED || !wasPressed || found == self(data).clicked_.end()) return;
        const auto clicked = found->second;  // a copy: the call may end the surface
        clicked();
    }

    // Events that the bound version doesn't send have no handler.
    static const wl_pointer_listener& listener() {
        static const wl_pointer_listener listener = [] {
            wl_pointer_listener each{};
            each.enter = entered;
            each.leave = left;
            each.motion = [](void*, wl_pointer*, std::uint32_t, wl_fixed_t, wl_fixed_t) {};
            each.button = button;
            each.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {};
            return each;
        }();
        return listener;
    }
};

WaylandPointer::WaylandPointer(WaylandDisplay& display) : display_(display) {
    display_.pointerCameOrWent = [this] { getOrRelease(); };
}

WaylandPointer::~WaylandPointer() {
    display_.pointerCameOrWent = {};
}

void WaylandPointer::listen(wl_surface* surface, std::function<void()> clicked) {
    clicked_[surface] = std::move(clicked);
    getOrRelease();
}

void WaylandPointer::forget(wl_surface* surface) {
    clicked_.erase(surface);
    if (under_ == surface) leave();
}

void WaylandPointer::getOrRelease() {
    if (!display_.seatHasPointer) {
        leave();
        pointer_.reset();
    } else if (!pointer_ && !clicked_.empty()) {
        pointer_.reset(wl_seat_get_pointer(display_.seat.get()));
        wl_pointer_add_listener(pointer_.get(), &Events::listener(), this);
    }
}

// The cursor theme takes some memory, so it is loaded only while its hand is shown.
void WaylandPointer::showHand(std::uint32_t serial) {
    if (!theme_)
        theme_.reset(wl_cursor_theme_load(std::getenv("XCURSOR_THEME"), cursorSize(), display_.sharedMemory.get()));
    if (!theme_) return;
    wl_cursor* cursor = wl_cursor_theme_get_cursor(theme_.get(), "pointer");
    if (!cursor) cursor = wl_cursor_theme_get_cursor(theme_.get(), "hand2");
    if (!cursor || cursor->image_count == 0) return;
    wl_cursor_image* const hand = cursor->images[0];
    image_.reset(wl_compositor_create_surface(display_.compositor.get()));
    wl_surface_attach(image_.get(), wl_cursor_image_get_buffer(hand), 0, 0);
    wl_surface_damage(image_.get(), 0, 0, INT32_MAX, INT32_MAX);
    wl_surface_commit(image_.get());
    wl_pointer_set_cursor(pointer_.get(), serial, image_.get(), static_cast<std::int32_t>(hand->hotspot_x),
                          static_cast<std::int32_t>(hand->hotspot_y));
}

void WaylandPointer::leave() {
    under_ = nullptr;
    isPressed_ = false;
    image_.reset();
    theme_.reset();
}

}  // namespace orvel
