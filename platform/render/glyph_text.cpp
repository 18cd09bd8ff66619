#include "platform/render/glyph_text.h"

#include <string>
#include <vector>

#include "platform/render/boundaries.h"
#include "platform/render/typeface.h"

namespace orvel {
namespace {

// For every byte of the layout's text, whether a visible character begins there.
std::vector<bool> characterStarts(PangoLayout* layout) {
    const char* const text = pango_layout_get_text(layout);
    int count = 0;
    const PangoLogAttr* const attributes = pango_layout_get_log_attrs_readonly(layout, &count);
    std::u32string characters;
    for (const char* at = text; *at; at = g_utf8_next_char(at)) characters += g_utf8_get_char(at);
    const auto found = boundaries(characters, {attributes, static_cast<std::size_t>(count)});
    std::vector<bool> starts;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        starts.push_back(i == 0 || found[i].cut);
        starts.resize(starts.size() + static_cast<std::size_t>(g_unichar_to_utf8(characters[i], nullptr)) - 1);
    }
    return starts;
}

// Those of the glyphs that have ink or an advance.
int visible(const PangoGlyphString& glyphs, int first, int last) {
    int count = 0;
    for (int i = first; i < last; ++i) count += glyphs.glyphs[i].glyph != PANGO_GLYPH_EMPTY;
    return count;
}

}  // namespace

void showText(cairo_t* cr, const PangoLayoutLine& line, PangoLayoutRun& run, double x) {
    const PangoGlyphString& glyphs = *run.glyphs;
    std::vector<cairo_glyph_t> placed;
    for (int i = 0; i < glyphs.num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = glyphs.glyphs[i];
        if (glyph.glyph != PANGO_GLYPH_EMPTY)
            placed.push_back({glyph.glyph, x + points(glyph.geometry.x_offset), points(glyph.geometry.y_offset)});
        x += points(glyph.geometry.width);
    }

    const char* const text = pango_layout_get_text(line.layout);
    const std::vector<bool> starts = characterStarts(line.layout);
    std::vector<cairo_text_cluster_t> clusters;
    PangoGlyphItemIter at;
    for (bool more = pango_glyph_item_iter_init_start(&at, &run, text); more;
         more = pango_glyph_item_iter_next_cluster(&at)) {
        const bool forwards = at.start_glyph < at.end_glyph;
        const int count = forwards ? visible(glyphs, at.start_glyph, at.end_glyph)
                                   : visible(glyphs, at.end_glyph + 1, at.start_glyph + 1);
        if (clusters.empty() || starts[static_cast<std::size_t>(at.start_index)]) clusters.push_back({0, 0});
        clusters.back().num_bytes += at.end_index - at.start_index;
        clusters.back().num_glyphs += count;
    }

    const bool rightToLeft = run.item->analysis.level % 2 == 1;
    cairo_set_scaled_font(cr, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run.item->analysis.font)));
    cairo_show_text_glyphs(cr, text + run.item->offset, run.item->length, placed.data(),
                           static_cast<int>(placed.size()), clusters.data(), static_cast<int>(clusters.size()),
                           rightToLeft ? CAIRO_TEXT_CLUSTER_FLAG_BACKWARD : cairo_text_cluster_flags_t{});
}

}  // namespace orvel
