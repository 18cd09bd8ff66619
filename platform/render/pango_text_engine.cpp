#include "platform/render/pango_text_engine.h"

#include <hb.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_map>

#include "platform/foundation/unicode.h"
#include "platform/render/shaped_text.h"

namespace orvel {
namespace {

constexpr const char* systemFont = "Inter";
constexpr std::string_view ellipsis = "…";
constexpr std::size_t mostMarks = 64;  // on one letter; more would be drawn far outside of any line

double points(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

PangoFontDescriptionPtr description(const Font& font) {
    PangoFontDescriptionPtr description(pango_font_description_new());
    pango_font_description_set_family_static(description.get(), systemFont);
    pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(font.weight));
    pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
    return description;
}

// The bytes of a mandatory line break (UAX #14: BK, CR, LF, NL) at the start of the text, or 0.
std::size_t lineBreakLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    if (!text.empty() && text.front() >= '\n' && text.front() <= '\r') return 1;
    if (text.starts_with("\xC2\x85")) return 2;
    if (text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9")) return 3;
    return 0;
}

// Control characters (category Cc) have no glyph; tabs do.
std::size_t invisibleLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if ((first < 0x20 && first != '\t') || first == 0x7F) return 1;
    if (first == 0xC2 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0) return 2;
    return 0;
}

std::string withoutControls(std::string_view text) {
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const std::size_t invisible = invisibleLength(text);
        if (invisible == 0) visible += text.front();
        text.remove_prefix(std::max<std::size_t>(invisible, 1));
    }
    return visible;
}

std::string displayable(std::string_view text) {
    if (unicode::isValid(text)) return unicode::limitingMarks(withoutControls(text), mostMarks);
    const std::unique_ptr<char, ReleaseWith<g_free>> repaired(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    return unicode::limitingMarks(withoutControls(repaired.get()), mostMarks);
}

// Takes the text up to its first line break, and the break, from the front; all of it when there is none in that many
// bytes.
std::string_view takeParagraph(std::string_view& text, std::size_t mostBytes) {
    std::size_t end = 0;
    while (end < std::min(text.size(), mostBytes) && lineBreakLength(text.substr(end)) == 0) ++end;
    if (end == mostBytes) end = text.size();
    const std::string_view paragraph = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(lineBreakLength(text));
    return paragraph;
}

struct Paragraph {
    ObjectPtr<PangoLayout> layout;
    std::string text;  // as shown
    bool cut = false;
};

// What stands for the cut end of the last line, or null.
PangoLayoutRun* ellipsisRun(PangoLayout* layout) {
    if (!pango_layout_is_ellipsized(layout)) return nullptr;
    PangoLayoutLine* const last = pango_layout_get_line(layout, pango_layout_get_line_count(layout) - 1);
    for (GSList* entry = last->runs; entry; entry = entry->next) {
        auto* const run = static_cast<PangoLayoutRun*>(entry->data);
        if (run->item->analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) return run;
    }
    return nullptr;
}

// Pango widens the ellipsis until its line is as wide as the bound. The line shall end where its ink does.
void takePaddingOff(PangoLayoutRun& run) {
    for (int i = 0; i < run.glyphs->num_glyphs; ++i) {
        PangoGlyphInfo& glyph = run.glyphs->glyphs[i];
        PangoRectangle logical;
        pango_font_get_glyph_extents(run.item->analysis.font, glyph.glyph, nullptr, &logical);
        glyph.geometry.width = logical.width;
        glyph.geometry.x_offset = 0;
    }
}

// The advance of the blanks that end a line. Pango itself leaves out only the last one.
double blanksWidth(const PangoLayoutLine& line) {
    const char* const text = pango_layout_get_text(line.layout);
    int end = line.start_index + line.length;
    while (end > line.start_index && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
    double width = 0;
    for (GSList* entry = line.runs; entry; entry = entry->next) {
        const auto& run = *static_cast<PangoLayoutRun*>(entry->data);
        for (int i = 0; i < run.glyphs->num_glyphs; ++i)
            if (run.item->offset + run.glyphs->log_clusters[i] >= end)
                width += points(run.glyphs->glyphs[i].geometry.width);
    }
    return width;
}

}  // namespace

struct PangoTextEngine::State {
    // Enough for every text of many cards; when full, all are forgotten.
    static constexpr std::size_t mostRemembered = 512;
    static constexpr std::size_t longestRemembered = 4096;

    State() : fonts(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)) {
        context.reset(pango_font_map_create_context(fonts.get()));
        const CairoFontOptionsPtr options(cairo_font_options_create());
        cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
        pango_cairo_context_set_font_options(context.get(), options.get());
        pango_context_set_round_glyph_positions(context.get(), FALSE);
        pango_context_set_language(context.get(), pango_language_from_string("en"));
        // A line that breaks inside a word is the word's own characters.
        pango_attr_list_insert(withoutHyphens.get(), pango_attr_insert_hyphens_new(FALSE));
    }

    Paragraph shape(std::string text, const Font& font, std::optional<double> width, int lines) const {
        Paragraph paragraph{ObjectPtr<PangoLayout>(pango_layout_new(context.get())), std::move(text), false};
        PangoLayout* const layout = paragraph.layout.get();
        pango_layout_set_font_description(layout, description(font).get());
        pango_layout_set_attributes(layout, withoutHyphens.get());
        pango_layout_set_text(layout, paragraph.text.data(), static_cast<int>(paragraph.text.size()));
        if (width && std::isfinite(*width)) {
            constexpr double widest = 1e6;  // fits Pango's integers
            const double units = std::ceil(std::clamp(*width, 0.0, widest) * PANGO_SCALE);
            pango_layout_set_width(layout, static_cast<int>(units));
            pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
            pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
            pango_layout_set_height(layout, -lines);
        }
        if (PangoLayoutRun* const cutAway = ellipsisRun(layout)) {
            takePaddingOff(*cutAway);
            paragraph.text.resize(static_cast<std::size_t>(cutAway->item->offset));
            paragraph.text += ellipsis;
            paragraph.cut = true;
        }
        return paragraph;
    }

    // The paragraph on at most that many lines. Of a long one only as much is shaped as these lines can show.
    Paragraph shapeParagraph(std::string_view text, const Font& font, std::optional<double> width, int lines,
                             bool moreFollows) const {
        const bool wraps = width && std::isfinite(*width);
        for (std::size_t bytes = wraps ? 2048 : longestLine;; bytes *= 2) {
            const std::string_view part = text.substr(0, unicode::clusterBoundary(text, bytes));
            const bool whole = part.size() == text.size();
            const bool long_ = !whole && (!wraps || bytes >= longestLine * static_cast<std::size_t>(lines));
            Paragraph paragraph = shape(displayable(part), font, width, lines);
            if (paragraph.cut) return paragraph;
            if (!whole && !long_) continue;

            const bool full = pango_layout_get_line_count(paragraph.layout.get()) >= lines;
            if (!long_ && !(moreFollows && full)) return paragraph;
            paragraph = shape(std::move(paragraph.text) + std::string(ellipsis), font, width, lines);
            paragraph.cut = true;
            return paragraph;
        }
    }

    TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) const {
        const auto shaped = std::make_shared<ShapedText>();
        TextBlock block;
        bool more = true;
        while (more && block.lines < mostLines && !block.cut) {
            const std::string_view before = text;
            const std::size_t enough = 2 * longestLine * static_cast<std::size_t>(mostLines - block.lines);
            const std::string_view line = takeParagraph(text, enough);
            more = line.size() < before.size();  // a break followed, and with it another paragraph
            if (block.lines > 0) block.text += '\n';

            Paragraph paragraph = shapeParagraph(line, font, width, mostLines - block.lines, more);
            const int lines = pango_layout_get_line_count(paragraph.layout.get());
            for (int i = 0; i < lines; ++i) {
                PangoLayoutLine* const shapedLine = pango_layout_get_line_readonly(paragraph.layout.get(), i);
                PangoRectangle logical;
                pango_layout_line_get_extents(shapedLine, nullptr, &logical);
                const double blanks = i + 1 < lines ? blanksWidth(*shapedLine) : 0;
                block.width = std::max(block.width, points(logical.width) - blanks);
                shaped->lines.push_back(shapedLine);
                ++block.lines;
            }
            block.cut = paragraph.cut;
            block.text += paragraph.text;
            shaped->paragraphs.push_back(std::move(paragraph.layout));
        }
        block.shaped = shaped;
        return block;
    }

    ObjectPtr<PangoFontMap> fonts;
    ObjectPtr<PangoContext> context;
    PangoAttrListPtr withoutHyphens{pango_attr_list_new()};
    std::unordered_map<std::string, TextBlock> remembered;
    std::unordered_map<int, FontMetrics> metricsByWeight;  // at size 1
};

PangoTextEngine::PangoTextEngine() : state_(std::make_unique<State>()) {}

PangoTextEngine::~PangoTextEngine() = default;

FontMetrics PangoTextEngine::metrics(const Font& font) {
    const auto [entry, isNew] = state_->metricsByWeight.try_emplace(static_cast<int>(font.weight));
    FontMetrics& unit = entry->second;
    if (isNew) {
        const ObjectPtr<PangoFont> loaded(
            pango_font_map_load_font(state_->fonts.get(), state_->context.get(), description(font).get()));
        hb_font_extents_t extents{};
        if (loaded) hb_font_get_h_extents(pango_font_get_hb_font(loaded.get()), &extents);
        unit = {points(extents.ascender) / font.size, points(-extents.descender) / font.size};
    }
    return {unit.ascent * font.size, unit.descent * font.size};
}

TextBlock PangoTextEngine::layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) {
    if (text.empty()) return {};
    if (text.size() > State::longestRemembered) return state_->layOut(text, font, width, mostLines);

    std::string key(text);
    const double numbers[] = {font.size, static_cast<double>(font.weight), width.value_or(-1),
                              static_cast<double>(mostLines)};
    key.append(reinterpret_cast<const char*>(numbers), sizeof numbers);
    if (const auto found = state_->remembered.find(key); found != state_->remembered.end()) return found->second;
    if (state_->remembered.size() >= State::mostRemembered) state_->remembered.clear();
    return state_->remembered.emplace(std::move(key), state_->layOut(text, font, width, mostLines)).first->second;
}

}  // namespace orvel
