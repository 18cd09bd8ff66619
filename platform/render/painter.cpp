#include "platform/render/painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/render/glyph_masks.h"
#include "platform/render/shaped_text.h"

// Last, for Cairo's FreeType access.
#include <cairo-ft.h>

namespace orvel {
namespace {

using std::numbers::pi;

// Restores the graphics state at the end of the scope.
class Saved {
public:
    explicit Saved(cairo_t* cr) : cr_(cr) { cairo_save(cr_); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;
    ~Saved() { cairo_restore(cr_); }

private:
    cairo_t* cr_;
};

double radians(double degrees) {
    return degrees * pi / 180;
}

double points(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

void setColor(cairo_t* cr, const Color& color) {
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.opacity);
}

void addRoundedRectangle(cairo_t* cr, Size size, double radius) {
    const double r = std::min({radius, size.width / 2, size.height / 2});
    cairo_new_sub_path(cr);
    cairo_arc(cr, size.width - r, r, r, -pi / 2, 0);
    cairo_arc(cr, size.width - r, size.height - r, r, 0, pi / 2);
    cairo_arc(cr, r, size.height - r, r, pi / 2, pi);
    cairo_arc(cr, r, r, r, pi, 3 * pi / 2);
    cairo_close_path(cr);
}

// Whether the mark lies so far inside that the rounded shape can't cut it. Ink may reach a little out of a frame.
bool isInside(const Mark& mark, Size size, double cornerRadius) {
    const auto* arc = std::get_if<ArcMark>(&mark.content);
    const double overshoot = arc ? arc->stroke.lineWidth : mark.frame.size.height / 2;
    const double inset = cornerRadius * (1 - std::numbers::sqrt2 / 2) + overshoot;
    if (mark.rotationDegrees != 0) return false;
    return mark.frame.origin.x >= inset && mark.frame.origin.y >= inset &&
           mark.frame.origin.x + mark.frame.size.width <= size.width - inset &&
           mark.frame.origin.y + mark.frame.size.height <= size.height - inset;
}

cairo_line_cap_t cairoCap(LineCap cap) {
    return cap == LineCap::round    ? CAIRO_LINE_CAP_ROUND
           : cap == LineCap::square ? CAIRO_LINE_CAP_SQUARE
                                    : CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t cairoJoin(LineJoin join) {
    return join == LineJoin::round   ? CAIRO_LINE_JOIN_ROUND
           : join == LineJoin::bevel ? CAIRO_LINE_JOIN_BEVEL
                                     : CAIRO_LINE_JOIN_MITER;
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

class ScenePainter {
public:
    ScenePainter(cairo_t* cr, Target target, const SymbolSet& symbols, GlyphMasks& masks)
        : cr_(cr), target_(target), symbols_(symbols), masks_(masks) {}

    void draw(const Mark& mark) {
        const Saved saved(cr_);
        if (mark.rotationDegrees != 0) {
            const Point center = mark.frame.center();
            cairo_translate(cr_, center.x, center.y);
            cairo_rotate(cr_, radians(mark.rotationDegrees));
            cairo_translate(cr_, -center.x, -center.y);
        }
        std::visit([&](const auto& content) { draw(content, mark.frame); }, mark.content);
    }

private:
    void draw(const TextMark& text, const Rect& frame) {
        if (!text.shaped) return;
        setColor(cr_, text.color);
        double baseline = text.baseline;
        for (PangoLayoutLine* line : text.shaped->lines) {
            drawLine(line, {frame.origin.x, baseline}, text.scale);
            baseline += text.lineHeight;
        }
    }

    void drawLine(PangoLayoutLine* line, Point origin, double scale) {
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
        for (GSList* run = line->runs; run; run = run->next) {
            auto* const glyphs = static_cast<PangoLayoutRun*>(run->data);
            drawRun(*glyphs, pango_layout_get_text(line->layout), x);
            x += points(pango_glyph_string_get_width(glyphs->glyphs));
        }
    }

    // A run of glyphs of one font, from there on along the baseline.
    void drawRun(PangoLayoutRun& run, const char* text, double x) {
        PangoFont* const font = run.item->analysis.font;
        cairo_scaled_font_t* const scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
        const bool color = scaled && hasColorGlyphs(scaled);
        if (color && target_ == Target::outlines) {
            drawPixels(font, *run.glyphs, x);
        } else if (color || !scaled || target_ == Target::outlines || hasUnknownGlyph(*run.glyphs)) {
            cairo_move_to(cr_, x, 0);
            pango_cairo_show_glyph_item(cr_, text, &run);
            cairo_new_path(cr_);
        } else {
            drawMasks(scaled, *run.glyphs, x);
        }
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
        cairo_paint(cr_);
    }

    void drawMasks(cairo_scaled_font_t* font, const PangoGlyphString& glyphs, double x) {
        const Saved saved(cr_);
        cairo_matrix_t toDevice;
        cairo_get_matrix(cr_, &toDevice);
        const bool upright = toDevice.xy == 0 && toDevice.yx == 0 && toDevice.xx == toDevice.yy;
        for (int i = 0; i < glyphs.num_glyphs; ++i) {
            const PangoGlyphInfo& glyph = glyphs.glyphs[i];
            if (glyph.glyph != PANGO_GLYPH_EMPTY) {
                const Point at{x + points(glyph.geometry.x_offset), points(glyph.geometry.y_offset)};
                if (upright)
                    drawMask(font, glyph.glyph, at, toDevice);
                else
                    drawOutline(font, glyph.glyph, at);
            }
            x += points(glyph.geometry.width);
        }
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

    void drawOutline(cairo_scaled_font_t* font, unsigned long glyph, Point at) {
        cairo_matrix_t size;
        cairo_scaled_font_get_font_matrix(font, &size);
        cairo_set_font_face(cr_, cairo_scaled_font_get_font_face(font));
        cairo_set_font_matrix(cr_, &size);
        const cairo_glyph_t one{glyph, at.x, at.y};
        cairo_glyph_path(cr_, &one, 1);
        cairo_fill(cr_);
    }

    void draw(const SymbolMark& symbol, const Rect& frame) {
        const SymbolOutline* const outline = symbols_.outline(symbol.name);
        if (!outline) return;
        cairo_translate(cr_, frame.origin.x, frame.origin.y);
        cairo_scale(cr_, frame.size.width, frame.size.height);
        Point current;
        for (const auto& segment : outline->segments) current = addSegment(segment, current);
        setColor(cr_, symbol.color);
        cairo_fill(cr_);
    }

    Point addSegment(const SymbolOutline::Segment& segment, Point from) {
        const auto& [a, b, c] = segment.points;
        switch (segment.verb) {
            case SymbolOutline::Verb::move:
                cairo_close_path(cr_);
                cairo_move_to(cr_, a.x, a.y);
                return a;
            case SymbolOutline::Verb::line: cairo_line_to(cr_, a.x, a.y); return a;
            case SymbolOutline::Verb::quadratic: {
                const auto third = [](double end, double control) { return (end + 2 * control) / 3; };
                cairo_curve_to(cr_, third(from.x, a.x), third(from.y, a.y), third(b.x, a.x), third(b.y, a.y), b.x, b.y);
                return b;
            }
            case SymbolOutline::Verb::cubic: cairo_curve_to(cr_, a.x, a.y, b.x, b.y, c.x, c.y); return c;
        }
        return from;
    }

    void draw(const CircleMark& circle, const Rect& frame) {
        const Point center = frame.center();
        cairo_arc(cr_, center.x, center.y, frame.size.width / 2, 0, 2 * pi);
        setColor(cr_, circle.color);
        cairo_fill(cr_);
    }

    void draw(const ArcMark& arc, const Rect& frame) {
        const Point center = frame.center();
        const double start = radians(arc.startDegrees);
        cairo_new_sub_path(cr_);
        cairo_arc(cr_, center.x, center.y, frame.size.width / 2, start + 2 * pi * arc.from, start + 2 * pi * arc.to);
        if (arc.to - arc.from >= 1) cairo_close_path(cr_);
        cairo_set_line_width(cr_, arc.stroke.lineWidth);
        cairo_set_line_cap(cr_, cairoCap(arc.stroke.lineCap));
        cairo_set_line_join(cr_, cairoJoin(arc.stroke.lineJoin));
        cairo_set_miter_limit(cr_, arc.stroke.miterLimit);
        setColor(cr_, arc.color);
        cairo_stroke(cr_);
    }

    cairo_t* cr_;
    Target target_;
    const SymbolSet& symbols_;
    GlyphMasks& masks_;
};

}  // namespace

struct Painter::State {
    const SymbolSet& symbols;
    GlyphMasks masks = {};
};

Painter::Painter(const SymbolSet& symbols) : state_(new State{symbols}) {}

Painter::~Painter() = default;

void Painter::paint(cairo_t* context, const Scene& scene, double cornerRadius, Target target) {
    const Saved saved(context);
    addRoundedRectangle(context, scene.size, cornerRadius);
    if (scene.background) {
        setColor(context, *scene.background);
        cairo_fill_preserve(context);
    }
    // A clip of that shape slows every mark down, and most cards have nothing near their edge.
    const bool clips =
        !std::ranges::all_of(scene.marks, [&](const Mark& mark) { return isInside(mark, scene.size, cornerRadius); });
    if (clips)
        cairo_clip(context);
    else
        cairo_new_path(context);

    ScenePainter painter(context, target, state_->symbols, state_->masks);
    for (const Mark& mark : scene.marks) painter.draw(mark);
}

}  // namespace orvel
