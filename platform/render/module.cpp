#include "platform/render/cairo_renderer.h"

/// The function that `loadRenderer` looks up in the module. The caller owns the renderer; null when memory runs out.
extern "C" [[gnu::visibility("default")]] orvel::Renderer* orvelMakeRenderer() noexcept {
    try {
        return orvel::makeCairoRenderer().release();
    } catch (...) {
        return nullptr;
    }
}
