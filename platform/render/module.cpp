#include "platform/render/cairo_renderer.h"

/// What `loadRenderer` looks up in the module. The caller owns the renderer; null when there is no memory for it.
extern "C" [[gnu::visibility("default")]] orvel::Renderer* orvelMakeRenderer() noexcept {
    try {
        return orvel::makeCairoRenderer().release();
    } catch (...) {
        return nullptr;
    }
}
