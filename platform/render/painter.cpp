#include "platform/render/painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/render/saved.h"
#include "platform/render/text_painter.h"

namespace orvel {
namespace {

using std::numbers::pi;

double radians(double degrees) {
    return degrees * pi / 180;
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

// Whether the mark lies so far inside that the rounded shape can't cut it. Ink may extend a little beyond the frame.
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
    void draw(const TextMark& text, const Rect& frame) { drawText(cr_, text, frame, target_, masks_); }

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
    // Clipping to that shape slows down the drawing of every mark, and most cards have nothing near their edges.
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
