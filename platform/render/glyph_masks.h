// Rasterised glyphs at subpixel positions, kept for the next drawing. Private to this folder.
#pragma once

#include <compare>
#include <map>

#include "platform/render/handles.h"

namespace orvel {

/// A glyph's coverage, and where the mask's top left corner lies from the glyph's origin, in pixels.
struct GlyphMask {
    CairoSurfacePtr coverage;  ///< null for a glyph without ink
    int leftPx = 0;
    int topPx = 0;
};

class GlyphMasks {
public:
    /// A glyph's origin lies at one of this many positions across a pixel.
    static constexpr int phases = 4;

    /// The glyph at `scale` times the font's size, its origin `phase` / `phases` pixels to the right of a pixel's edge.
    /// The mask lasts until the next call.
    const GlyphMask& mask(cairo_scaled_font_t* font, unsigned long glyph, double scale, int phase);

private:
    struct Key {
        cairo_scaled_font_t* font;
        unsigned long glyph;
        double scale;
        int phase;
        auto operator<=>(const Key&) const = default;
    };

    std::map<Key, GlyphMask> masks_;
    std::map<cairo_scaled_font_t*, std::unique_ptr<cairo_scaled_font_t, ReleaseWith<cairo_scaled_font_destroy>>> fonts_;
};

}  // namespace orvel
