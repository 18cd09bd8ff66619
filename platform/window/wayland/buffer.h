// A buffer in memory that the process shares with the compositor. Private to this folder.
#pragma once

#include <memory>

#include "platform/foundation/pixel_buffer.h"
#include "platform/window/wayland/display.h"

namespace orvel {

class WaylandBuffer {
public:
    /// Transparent pixels. Null when the system has no memory for them.
    static std::unique_ptr<WaylandBuffer> make(wl_shm* sharedMemory, int widthPx, int heightPx, double scale);
    WaylandBuffer(const WaylandBuffer&) = delete;

    const PixelBuffer& pixels() const { return pixels_; }
    wl_buffer* handle() const { return buffer_.get(); }

    /// The compositor reads from it from its commit until it calls `released`.
    std::function<void()> released;

private:
    struct Unmap {
        std::size_t bytes;
        void operator()(unsigned char* memory) const;
    };
    WaylandBuffer() = default;

    PixelBuffer pixels_;
    std::unique_ptr<unsigned char, Unmap> memory_;
    WaylandPtr<wl_buffer> buffer_;
};

}  // namespace orvel
