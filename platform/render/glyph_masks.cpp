#include "platform/render/glyph_masks.h"

#include <cmath>

namespace orvel {
namespace {

GlyphMask rasterise(cairo_scaled_font_t* font, unsigned long index, double scale, double phase) {
    cairo_glyph_t glyph{index, 0, 0};
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(font, &glyph, 1, &extents);
    if (extents.width <= 0 || extents.height <= 0) return {};

    // One more pixel on every side, for rounding and the phase.
    GlyphMask mask;
    mask.leftPx = static_cast<int>(std::floor(extents.x_bearing * scale)) - 1;
    mask.topPx = static_cast<int>(std::floor(extents.y_bearing * scale)) - 1;
    const int widthPx = static_cast<int>(std::ceil(extents.width * scale)) + 4;
    const int heightPx = static_cast<int>(std::ceil(extents.height * scale)) + 3;
    mask.coverage.reset(cairo_image_surface_create(CAIRO_FORMAT_A8, widthPx, heightPx));

    const CairoPtr cr(cairo_create(mask.coverage.get()));
    cairo_translate(cr.get(), phase - mask.leftPx, -mask.topPx);
    cairo_scale(cr.get(), scale, scale);
    cairo_set_antialias(cr.get(), CAIRO_ANTIALIAS_BEST);
    const CairoFontOptionsPtr options(cairo_font_options_create());
    cairo_scaled_font_get_font_options(font, options.get());
    cairo_matrix_t size;
    cairo_scaled_font_get_font_matrix(font, &size);
    cairo_set_font_options(cr.get(), options.get());
    cairo_set_font_face(cr.get(), cairo_scaled_font_get_font_face(font));
    cairo_set_font_matrix(cr.get(), &size);
    cairo_glyph_path(cr.get(), &glyph, 1);
    cairo_fill(cr.get());
    return mask;
}

}  // namespace

const GlyphMask& GlyphMasks::mask(cairo_scaled_font_t* font, unsigned long glyph, double scale, int phase) {
    constexpr std::size_t most = 2048;
    if (masks_.size() >= most) {
        masks_.clear();
        fonts_.clear();
    }
    const Key key{font, glyph, scale, phase};
    const auto found = masks_.find(key);
    if (found != masks_.end()) return found->second;
    // A font that masks remember must not die and give its address to another.
    auto& kept = fonts_[font];
    if (!kept) kept.reset(cairo_scaled_font_reference(font));
    return masks_.emplace(key, rasterise(font, glyph, scale, static_cast<double>(phase) / phases)).first->second;
}

}  // namespace orvel
