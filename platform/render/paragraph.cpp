#include "platform/render/paragraph.h"

#include <algorithm>
#include <memory>

namespace orvel {
namespace {

std::u32string decoded(const std::string& text) {
    glong length = 0;
    const std::unique_ptr<gunichar, ReleaseWith<g_free>> characters(
        g_utf8_to_ucs4_fast(text.data(), static_cast<glong>(text.size()), &length));
    return {characters.get(), characters.get() + length};
}

bool endsInBlank(const std::string& text) {
    const char* const last = g_utf8_find_prev_char(text.data(), text.data() + text.size());
    return last && isBlank(g_utf8_get_char(last));
}

int widthOf(PangoLayout* layout, std::ptrdiff_t line) {
    PangoRectangle logical;
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout, static_cast<int>(line)), nullptr, &logical);
    return logical.width;
}

}  // namespace

Paragraph::Paragraph(std::string text, const Typeface& typeface)
    : typeface_(typeface), text_(std::move(text)), oneLine_(typeface.shaped(text_)) {}

void Paragraph::measure() {
    if (!characters_.empty()) return;
    const std::u32string text = decoded(text_);
    int count = 0;
    const PangoLogAttr* const attributes = pango_layout_get_log_attrs_readonly(oneLine_.get(), &count);
    boundaries_ = boundaries(text, {attributes, static_cast<std::size_t>(count)});

    characters_.reserve(text.size() + 1);
    std::size_t byte = 0;
    for (const char32_t c : text) {
        characters_.push_back({byte, 0, isBlank(c), c == U'\t'});
        byte += static_cast<std::size_t>(g_unichar_to_utf8(c, nullptr));
    }
    measureClusters();
    characters_.push_back({text_.size(), 0, false, false});
}

// Each character's share of its cluster's advance. A line can't end inside a cluster of the font, such as a ligature.
void Paragraph::measureClusters() {
    const auto indexOf = [&](int at) {
        const auto found = std::ranges::lower_bound(characters_, static_cast<std::size_t>(at), {}, &Character::byte);
        return static_cast<std::size_t>(found - characters_.begin());
    };
    std::vector<int> widths;
    std::vector<char> startsCluster;
    for (GSList* entry = pango_layout_get_line_readonly(oneLine_.get(), 0)->runs; entry; entry = entry->next) {
        auto* const run = static_cast<PangoLayoutRun*>(entry->data);
        const std::size_t first = indexOf(run->item->offset);
        const auto count = static_cast<std::size_t>(run->item->num_chars);
        widths.assign(count, 0);
        pango_glyph_item_get_logical_widths(run, text_.data(), widths.data());
        startsCluster.assign(count, false);
        for (int i = 0; i < run->glyphs->num_glyphs; ++i)
            startsCluster[indexOf(run->item->offset + run->glyphs->log_clusters[i]) - first] = true;
        for (std::size_t i = 0; i < count; ++i) {
            characters_[first + i].width = widths[i];
            if (!startsCluster[i]) boundaries_[first + i].cut = boundaries_[first + i].split = false;
        }
    }
}

int Paragraph::advance(int from, const Character& character) const {
    if (!character.tab) return from + character.width;
    const int stop = std::max(typeface_.tabWidth(), 1);
    return (from / stop + 1) * stop;
}

// The furthest place within the bound where a line may end; else the furthest between clusters; else inside a cluster.
// At least one letter stays on the line.
std::size_t Paragraph::lineEnd(std::size_t first, int bound, std::size_t furthest) const {
    std::size_t best = first;
    std::size_t insideWord = first;
    std::size_t insideCluster = first;
    int at = 0;
    int content = 0;  // without blanks at the end
    for (std::size_t i = first; i + 1 < characters_.size() && (content <= bound || insideCluster == first); ++i) {
        at = advance(at, characters_[i]);
        if (!characters_[i].blank) content = at;
        const Boundary& boundary = boundaries_[i + 1];
        const bool hyphenated = boundary.line == Boundary::Line::mayEndWithHyphen;
        const bool fits = i < furthest && content + (hyphenated ? typeface_.hyphenWidth() : 0) <= bound;
        if (fits && boundary.line != Boundary::Line::stays) best = i + 1;
        if (fits && boundary.cut) insideWord = i + 1;
        if (boundary.split && (fits || insideCluster == first)) insideCluster = i + 1;
    }
    return best != first ? best : insideWord != first ? insideWord : insideCluster;
}

// A line that is broken inside a word can be wider than the same letters in the whole word, because a join is missing
// at its end. It then ends earlier.
std::size_t Paragraph::lineEndAlone(std::size_t first, int bound, std::size_t furthest) const {
    for (;;) {
        const std::size_t end = lineEnd(first, bound, furthest);
        if (boundaries_[end].line != Boundary::Line::stays || !canEndInside({first, end, end})) return end;
        const std::size_t byte = characters_[first].byte;
        const auto alone = typeface_.shaped(text_.substr(byte, characters_[end].byte - byte));
        if (widthOf(alone.get(), 0) <= bound) return end;
        furthest = end - 1;
    }
}

bool Paragraph::canEndInside(const Line& line) const {
    const auto at = [&](std::size_t place) { return boundaries_.begin() + static_cast<std::ptrdiff_t>(place); };
    return line.end > line.first + 1 &&
           std::any_of(at(line.first + 1), at(line.end), [](const Boundary& boundary) { return boundary.split; });
}

std::size_t Paragraph::cutEnd(std::size_t first, int bound, std::size_t furthest) const {
    std::size_t best = first;
    int at = 0;
    for (std::size_t i = first; i < furthest && i + 1 < characters_.size(); ++i) {
        at = advance(at, characters_[i]);
        if (at > bound - typeface_.ellipsisWidth()) break;
        if (boundaries_[i + 1].cut) best = i + 1;
    }
    return best;
}

// `furthest` limits lines from the first on.
std::vector<Paragraph::Line> Paragraph::split(int bound, int mostLines, bool moreFollows,
                                              const std::vector<std::size_t>& furthest) const {
    const std::size_t count = characters_.size() - 1;
    std::vector<Line> lines;
    std::size_t first = 0;
    do {
        const std::size_t limit = lines.size() < furthest.size() ? furthest[lines.size()] : count;
        const bool last = static_cast<int>(lines.size()) + 1 == mostLines;
        Line line{first, 0, last ? lineEnd(first, bound, limit) : lineEndAlone(first, bound, limit)};
        line.end = line.next;
        while (line.end > first && characters_[line.end - 1].blank) --line.end;
        if (last && (line.next < count || moreFollows)) {
            line.end = line.next = cutEnd(first, bound, limit);
            line.mark = Line::Mark::ellipsis;
        } else if (boundaries_[line.next].line == Boundary::Line::mayEndWithHyphen) {
            line.mark = Line::Mark::hyphen;
        }
        lines.push_back(line);
        first = line.next;
    } while (first < count && lines.back().mark != Line::Mark::ellipsis);
    return lines;
}

Paragraph::Lines Paragraph::shaped(const std::vector<Line>& lines) const {
    std::string broken;
    std::optional<std::size_t> mark;
    for (const Line& line : lines) {
        if (line.first > 0) broken += lineSeparator;
        const std::size_t end = line.end - (line.mark == Line::Mark::hyphen ? 1 : 0);  // it stands for the soft hyphen
        broken.append(text_, characters_[line.first].byte, characters_[end].byte - characters_[line.first].byte);
        if (line.mark == Line::Mark::hyphen) broken += hyphenMark;
        if (line.mark == Line::Mark::ellipsis) {
            mark = broken.size();
            broken += ellipsisMark;
        }
    }
    if (!mark) return {typeface_.shaped(broken), text_, false};
    return {typeface_.shaped(broken, mark), text_.substr(0, characters_[lines.back().end].byte) + ellipsisMark, true};
}

Paragraph::Lines Paragraph::lines(int bound, int mostLines, bool moreFollows) {
    if (!moreFollows && !endsInBlank(text_) && widthOf(oneLine_.get(), 0) <= bound)
        return {ObjectPtr<PangoLayout>(PANGO_LAYOUT(g_object_ref(oneLine_.get()))), text_, false};
    measure();
    // Kerning and joins differ at the ends of lines. A line that became too wide for that reason ends earlier.
    std::vector<std::size_t> furthest;
    for (;;) {
        const std::vector<Line> lines = split(bound, mostLines, moreFollows, furthest);
        Lines result = shaped(lines);
        const auto tooWide = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
            const bool canShrink = line.mark == Line::Mark::ellipsis ? line.end > line.first : canEndInside(line);
            return canShrink && widthOf(result.layout.get(), &line - lines.data()) > bound;
        });
        if (tooWide == lines.end()) return result;
        const auto place = static_cast<std::size_t>(tooWide - lines.begin());
        for (std::size_t i = furthest.size(); i < place; ++i) furthest.push_back(lines[i].next);
        furthest.resize(place);
        furthest.push_back(tooWide->end - 1);
    }
}

}  // namespace orvel
