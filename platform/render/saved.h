// A scope's graphics state, and a mark's colour. Private to this folder.
#pragma once

#include <cairo.h>

#include "platform/ui/style.h"

namespace orvel {

/// Restores the graphics state at the end of the scope.
class Saved {
public:
    explicit Saved(cairo_t* cr) : cr_(cr) { cairo_save(cr_); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;
    ~Saved() { cairo_restore(cr_); }

private:
    cairo_t* cr_;
};

inline void setColor(cairo_t* cr, const Color& color) {
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.opacity);
}

}  // namespace orvel
