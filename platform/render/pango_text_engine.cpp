#include "platform/render/pango_text_engine.h"

#include <hb.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/foundation/unicode.h"
#include "platform/render/fallback_faces.h"
#include "platform/render/paragraph.h"
#include "platform/render/plain_text.h"
#include "platform/render/shaped_text.h"
#include "platform/render/typeface.h"

namespace orvel {
namespace {

// The width in Pango's integers.
int units(std::optional<double> width) {
    if (!width || !std::isfinite(*width)) return Paragraph::unbounded;
    constexpr double widest = 1e6;
    return static_cast<int>(std::ceil(std::clamp(*width, 0.0, widest) * PANGO_SCALE));
}

// A key made of the text's bytes and the numbers' bytes.
std::string keyOf(std::string_view text, std::initializer_list<double> numbers) {
    std::string key;
    key.reserve(text.size() + numbers.size() * sizeof(double));
    key.append(text);
    key.append(reinterpret_cast<const char*>(numbers.begin()), numbers.size() * sizeof(double));
    return key;
}

}  // namespace

struct PangoTextEngine::State {
    // Enough for all texts of many cards. When the cache is full, it is emptied.
    static constexpr std::size_t mostRemembered = 512;
    static constexpr std::size_t longestRemembered = 4096;

    State() : fonts(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)) {
        preferSansFaces(fonts.get());
        context.reset(pango_font_map_create_context(fonts.get()));
        const CairoFontOptionsPtr options(cairo_font_options_create());
        cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
        pango_cairo_context_set_font_options(context.get(), options.get());
        pango_context_set_round_glyph_positions(context.get(), FALSE);
        pango_context_set_language(context.get(), pango_language_from_string("en"));
    }

    const Typeface& typeface(const Font& font) {
        const std::pair key{font.size, static_cast<int>(font.weight)};
        const auto found = typefaces.find(key);
        if (found != typefaces.end()) return found->second;
        return typefaces.try_emplace(key, context.get(), font).first->second;
    }

    // Shaped once, for all widths in which it is laid out.
    std::shared_ptr<Paragraph> paragraph(std::string_view text, const Font& font) {
        std::shared_ptr<Paragraph> made;
        std::shared_ptr<Paragraph>* place = &made;
        if (text.size() <= longestRemembered) {
            if (paragraphs.size() >= mostRemembered) paragraphs.clear();
            place = &paragraphs[keyOf(text, {font.size, static_cast<double>(font.weight)})];
        }
        if (!*place) *place = std::make_shared<Paragraph>(displayable(text), typeface(font));
        return *place;
    }

    // The paragraph on at most that many lines. Only as much of a long one is shaped as these lines can show.
    Paragraph::Lines lines(std::string_view text, const Font& font, int bound, int mostLines, bool moreFollows) {
        const bool wraps = bound != Paragraph::unbounded;
        for (std::size_t bytes = wraps ? 2048 : longestLine;; bytes *= 2) {
            const std::string_view part = text.substr(0, unicode::clusterBoundary(text, bytes));
            const bool whole = part.size() == text.size();
            const bool enough = whole || !wraps || bytes >= longestLine * static_cast<std::size_t>(mostLines);
            Paragraph::Lines lines = paragraph(part, font)->lines(bound, mostLines, enough && (moreFollows || !whole));
            if (lines.cut || whole) return lines;
            if (!enough) continue;
            // The lines hold only characters without width.
            lines.cut = true;
            return lines;
        }
    }

    TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) {
        const auto shaped = std::make_shared<ShapedText>();
        TextBlock block;
        bool more = true;
        while (more && block.lines < mostLines && !block.cut) {
            const std::string_view before = text;
            const std::size_t enough = 2 * longestLine * static_cast<std::size_t>(mostLines - block.lines);
            const std::string_view line = takeParagraph(text, enough);
            more = line.size() < before.size();  // a break followed, and with it another paragraph
            const bool moreShows = more && !withoutBlankStart(text).empty();
            if (block.lines > 0) block.text += '\n';

            Paragraph::Lines lines = this->lines(line, font, units(width), mostLines - block.lines, moreShows);
            block.lines += pango_layout_get_line_count(lines.layout.get());
            block.cut = lines.cut;
            block.text += lines.text;
            shaped->paragraphs.push_back(std::move(lines.layout));
        }
        addLines(*shaped, block, font);
        block.shaped = shaped;
        return block;
    }

    void addLines(ShapedText& shaped, TextBlock& block, const Font& font) const {
        const double furthest = 1.5 * font.size;  // marks can be stacked without limit
        for (const auto& paragraph : shaped.paragraphs)
            for (GSList* entry = pango_layout_get_lines_readonly(paragraph.get()); entry; entry = entry->next) {
                auto* const line = static_cast<PangoLayoutLine*>(entry->data);
                PangoRectangle logical;
                pango_layout_line_get_extents(line, nullptr, &logical);
                block.width = std::max(block.width, points(logical.width));
                const FontMetrics ink = inkOfOtherFaces(*line);
                block.otherFaces.ascent = std::max(block.otherFaces.ascent, std::min(ink.ascent, furthest));
                block.otherFaces.descent = std::max(block.otherFaces.descent, std::min(ink.descent, furthest));
                shaped.lines.push_back(line);
            }
    }

    FontMetrics inkOfOtherFaces(const PangoLayoutLine& line) const {
        FontMetrics furthest;
        for (GSList* entry = line.runs; entry; entry = entry->next) {
            auto* const run = static_cast<PangoLayoutRun*>(entry->data);
            PangoFont* const font = run->item->analysis.font;
            if (isSystemFace(font)) continue;
            PangoRectangle ink;
            pango_glyph_string_extents(run->glyphs, font, &ink, nullptr);
            furthest.ascent = std::max(furthest.ascent, points(-ink.y));
            furthest.descent = std::max(furthest.descent, points(ink.y + ink.height));
        }
        return furthest;
    }

    ObjectPtr<PangoFontMap> fonts;
    ObjectPtr<PangoContext> context;
    std::map<std::pair<double, int>, Typeface> typefaces;
    std::unordered_map<std::string, std::shared_ptr<Paragraph>> paragraphs;
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
            pango_font_map_load_font(state_->fonts.get(), state_->context.get(), state_->typeface(font).description()));
        hb_font_extents_t extents{};
        if (loaded) hb_font_get_h_extents(pango_font_get_hb_font(loaded.get()), &extents);
        unit = {points(extents.ascender) / font.size, points(-extents.descender) / font.size};
    }
    return {unit.ascent * font.size, unit.descent * font.size};
}

TextBlock PangoTextEngine::layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) {
    const bool remembers = text.size() <= State::longestRemembered;
    std::string key;
    if (remembers) {
        key = keyOf(text,
                    {font.size, static_cast<double>(font.weight), width.value_or(-1), static_cast<double>(mostLines)});
        const auto found = state_->remembered.find(key);
        if (found != state_->remembered.end()) return found->second;
    }
    TextBlock block = state_->layOut(text, font, width, mostLines);
    if (block.cut) {
        const std::string_view shown = withoutBlankLinesAtStart(text);
        if (shown.size() < text.size()) block = state_->layOut(shown, font, width, mostLines);
    }
    if (!remembers) return block;
    if (state_->remembered.size() >= State::mostRemembered) state_->remembered.clear();
    return state_->remembered.emplace(std::move(key), std::move(block)).first->second;
}

}  // namespace orvel
