#include "platform/render/text_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/render/fallback_faces.h"
#include "platform/render/glyph_text.h"
#include "platform/render/saved.h"
#include "platform/render/shaped_text.h"
#include "platform/render/typeface.h"

// Last, for Cairo's FreeType access.
#include <cairo-ft.h>

namespace orvel {
namespace {

PangoLayoutRun& runOf(const GSList* entry) {
    return *static_cast<PangoLayoutRun*>(entry->data);
}

cairo_scaled_font_t* scaledFont(const PangoLayoutRun& run) {
    return pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run.item->analysis.font));
}

bool hasColorGlyphs(cairo_scaled_font_t* font) {
    const FT_Face face = cairo_ft_scaled_font_lock_face(font);
    const bool color = face && FT_HAS_COLOR(face);
    cairo_ft_scaled_font_unlock_face(font);
    return color;
}

bool hasUnknownGlyph(const PangoGlyphString& glyphs) {
    return std::any_of(glyphs.glyphs, glyphs.glyphs + glyphs.num_glyphs,
                       [](const PangoGlyphInfo& glyph) { return (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0; });
}

// Whether glyphs overlap, as joined letters and marks do. The letters of the system font don't.
bool hasOverlaps(const PangoLayoutRun& run) {
    const PangoGlyphString& glyphs = *run.glyphs;
    const auto isMark = [](const PangoGlyphInfo& glyph) { return glyph.geometry.width == 0; };
    if (std::none_of(glyphs.glyphs, glyphs.glyphs + glyphs.num_glyphs, isMark) && isSystemFace(run.item->analysis.font))
        return false;
    int x = 0;
    int inkEnd = std::numeric_limits<int>::min();
    for (int i = 0; i < glyphs.num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = glyphs.glyphs[i];
        PangoRectangle ink;
        pango_font_get_glyph_extents(run.item->analysis.font, glyph.glyph, &ink, nullptr);
        const int left = x + glyph.geometry.x_offset + ink.x;
        if (ink.width > 0 && left < inkEnd) return true;
        if (ink.width > 0) inkEnd = left + ink.width;
        x += glyph.geometry.width;
    }
    return false;
}

class TextPainter {
public:
    TextPainter(cairo_t* cr, const Color& color, Target target, GlyphMasks& masks)
        : cr_(cr), color_(color), target_(target), masks_(masks) {}

    void draw(const TextMark& text, Point origin) {
        setColor(cr_, color_);
        for (PangoLayoutLine* line : text.shaped->lines) {
            drawLine(*line, origin, text.scale);
            origin.y += text.lineHeight;
        }
    }

private:
    void drawLine(const PangoLayoutLine& line, Point origin, double scale) {
        const Saved saved(cr_);
        if (target_ == Target::pixels) {
            // Whole pixels for the baseline: every line of a text then has the same sharpness.
            cairo_user_to_device(cr_, &origin.x, &origin.y);
            origin.y = std::round(origin.y);
            cairo_device_to_user(cr_, &origin.x, &origin.y);
        }
        cairo_translate(cr_, origin.x, origin.y);
        cairo_scale(cr_, scale, scale);
        double x = 0;
        for (const GSList* run = line.runs; run; run = run->next) {
            drawRun(line, runOf(run), x);
            x += points(pango_glyph_string_get_width(runOf(run).glyphs));
        }
    }

    // A run of glyphs of one font along the baseline, beginning at that point.
    void drawRun(const PangoLayoutLine& line, PangoLayoutRun& run, double x) {
        cairo_scaled_font_t* const scaled = scaledFont(run);
        const bool color = scaled && hasColorGlyphs(scaled);
        if (color && target_ == Target::outlines)
            drawPixels(run.item->analysis.font, *run.glyphs, x);
        else if (color || !scaled || hasUnknownGlyph(*run.glyphs))
            drawAtOnce(line, run, x);
        else if (target_ == Target::outlines)
            showText(cr_, line, run, x);
        else
            drawGlyphs(scaled, run, x);
    }

    // Glyphs that Pango draws with more than one colour or stroke.
    void drawAtOnce(const PangoLayoutLine& line, PangoLayoutRun& run, double x) {
        const Saved saved(cr_);
        constexpr double room = 1;
        PangoRectangle ink;
        pango_glyph_string_extents(run.glyphs, run.item->analysis.font, &ink, nullptr);
        cairo_rectangle(cr_, x + points(ink.x) - room, points(ink.y) - room, points(ink.width) + 2 * room,
                        points(ink.height) + 2 * room);
        cairo_clip(cr_);
        cairo_push_group(cr_);
        setColor(cr_, {color_.red, color_.green, color_.blue, 1});
        cairo_move_to(cr_, x, 0);
        pango_cairo_show_glyph_item(cr_, pango_layout_get_text(line.layout), &run);
        cairo_new_path(cr_);
        cairo_pop_group_to_source(cr_);
        cairo_paint_with_alpha(cr_, color_.opacity);
    }

    // Colour glyphs are pixels even among outlines; there they get eight to the point.
    void drawPixels(PangoFont* font, PangoGlyphString& glyphs, double x) {
        constexpr double density = 8;
        PangoRectangle ink;
        pango_glyph_string_extents(&glyphs, font, &ink, nullptr);
        const int widthPx = static_cast<int>(std::ceil(points(ink.width) * density));
        const int heightPx = static_cast<int>(std::ceil(points(ink.height) * density));
        const CairoSurfacePtr pixels(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, widthPx, heightPx));
        {
            const CairoPtr cr(cairo_create(pixels.get()));
            cairo_scale(cr.get(), density, density);
            cairo_move_to(cr.get(), -points(ink.x), -points(ink.y));
            pango_cairo_show_glyph_string(cr.get(), font, &glyphs);
        }
        const Saved saved(cr_);
        cairo_translate(cr_, x + points(ink.x), points(ink.y));
        cairo_scale(cr_, 1 / density, 1 / density);
        cairo_set_source_surface(cr_, pixels.get(), 0, 0);
        cairo_paint_with_alpha(cr_, color_.opacity);
    }

    // Where glyphs overlap, or the text is turned, as one outline.
    void drawGlyphs(cairo_scaled_font_t* font, const PangoLayoutRun& run, double x) {
        const PangoGlyphString& glyphs = *run.glyphs;
        cairo_matrix_t toDevice;
        cairo_get_matrix(cr_, &toDevice);
        const bool upright = toDevice.xy == 0 && toDevice.yx == 0 && toDevice.xx == toDevice.yy;
        const bool asOutline = !upright || hasOverlaps(run);
        for (int i = 0; i < glyphs.num_glyphs; ++i) {
            const PangoGlyphInfo& glyph = glyphs.glyphs[i];
            if (glyph.glyph != PANGO_GLYPH_EMPTY) {
                const Point at{x + points(glyph.geometry.x_offset), points(glyph.geometry.y_offset)};
                if (asOutline)
                    addOutline(font, glyph.glyph, at);
                else
                    drawMask(font, glyph.glyph, at, toDevice);
            }
            x += points(glyph.geometry.width);
        }
        if (!asOutline) return;
        cairo_set_antialias(cr_, CAIRO_ANTIALIAS_BEST);
        cairo_fill(cr_);
    }

    void drawMask(cairo_scaled_font_t* font, unsigned long glyph, Point at, const cairo_matrix_t& toDevice) {
        cairo_matrix_transform_point(&toDevice, &at.x, &at.y);
        const double quarters = std::floor(at.x * GlyphMasks::phases + 0.5);
        const double leftPx = std::floor(quarters / GlyphMasks::phases);
        const int phase = static_cast<int>(quarters - leftPx * GlyphMasks::phases);
        const GlyphMask& mask = masks_.mask(font, glyph, toDevice.xx, phase);
        if (!mask.coverage) return;
        cairo_identity_matrix(cr_);
        cairo_mask_surface(cr_, mask.coverage.get(), leftPx + mask.leftPx, std::round(at.y) + mask.topPx);
        cairo_set_matrix(cr_, &toDevice);
    }

    void addOutline(cairo_scaled_font_t* font, unsigned long glyph, Point at) {
        cairo_matrix_t size;
        cairo_scaled_font_get_font_matrix(font, &size);
        cairo_set_font_face(cr_, cairo_scaled_font_get_font_face(font));
        cairo_set_font_matrix(cr_, &size);
        const cairo_glyph_t one{glyph, at.x, at.y};
        cairo_glyph_path(cr_, &one, 1);
    }

    cairo_t* cr_;
    Color color_;
    Target target_;
    GlyphMasks& masks_;
};

}  // namespace

void drawText(cairo_t* cr, const TextMark& text, const Rect& frame, Target target, GlyphMasks& masks) {
    if (!text.shaped) return;
    const auto overlaps = [](const PangoLayoutLine* line) {
        for (const GSList* run = line->runs; run; run = run->next)
            if (hasOverlaps(runOf(run))) return true;
        return false;
    };
    const Point origin{frame.origin.x, text.baseline};
    Color color = text.color;
    const bool grouped =
        target == Target::outlines && color.opacity < 1 && std::ranges::any_of(text.shaped->lines, overlaps);
    if (!grouped) {
        TextPainter(cr, color, target, masks).draw(text, origin);
        return;
    }
    color.opacity = 1;
    cairo_push_group(cr);
    TextPainter(cr, color, target, masks).draw(text, origin);
    cairo_pop_group_to_source(cr);
    cairo_paint_with_alpha(cr, text.color.opacity);
}

}  // namespace orvel
