#include "platform/window/wayland/buffer.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/foundation/descriptor.h"

namespace orvel {
namespace {

constexpr wl_buffer_listener listener{.release = [](void* data, wl_buffer*) {
    // A copy, because the call may destroy the buffer.
    if (const auto released = static_cast<WaylandBuffer*>(data)->released) released();
}};

}  // namespace

std::unique_ptr<WaylandBuffer> WaylandBuffer::make(wl_shm* sharedMemory, int widthPx, int heightPx, double scale) {
    auto self = std::unique_ptr<WaylandBuffer>(new WaylandBuffer());
    self->pixels_ = {nullptr, widthPx, heightPx, widthPx * 4, scale};
    const std::size_t bytes = size(self->pixels_);

    const Descriptor memory(::memfd_create("card", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory || ::ftruncate(memory.get(), static_cast<off_t>(bytes)) < 0) return nullptr;
    ::fcntl(memory.get(), F_ADD_SEALS, F_SEAL_SHRINK);  // so that the compositor can read it safely
    void* const mapped = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory.get(), 0);
    if (mapped == MAP_FAILED) return nullptr;
    self->memory_ = {static_cast<unsigned char*>(mapped), Unmap{bytes}};
    self->pixels_.bytes = self->memory_.get();

    const WaylandPtr<wl_shm_pool> pool(
        wl_shm_create_pool(sharedMemory, memory.get(), static_cast<std::int32_t>(bytes)));
    self->buffer_.reset(
        wl_shm_pool_create_buffer(pool.get(), 0, widthPx, heightPx, widthPx * 4, WL_SHM_FORMAT_ARGB8888));
    wl_buffer_add_listener(self->buffer_.get(), &listener, self.get());
    return self;
}

void WaylandBuffer::Unmap::operator()(unsigned char* memory) const {
    ::munmap(memory, bytes);
}

}  // namespace orvel
