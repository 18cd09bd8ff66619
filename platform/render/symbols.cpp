// The symbols are the glyphs of an icon font, found by glyph name: the system's name with "_" for ".".
#include "platform/render/symbols.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <map>
#include <string>

// The font file's bytes, from symbol_font.S.
extern "C" const unsigned char orvelSymbolFont[];
extern "C" const unsigned char orvelSymbolFontEnd[];

namespace orvel {
namespace {

std::optional<std::string> glyphName(std::string_view name) {
    constexpr std::size_t longest = 64;
    const auto belongs = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.'; };
    if (name.empty() || name.size() > longest || !std::ranges::all_of(name, belongs)) return std::nullopt;
    std::string glyph(name);
    std::ranges::replace(glyph, '.', '_');
    return glyph;
}

// Collects a glyph's outline in the unit square that its em square fills.
class OutlineReader {
public:
    OutlineReader(const FT_Face face) : unit_(1.0 / face->units_per_EM), top_(face->ascender * unit_) {}

    SymbolOutline read(FT_Outline& outline) {
        using Verb = SymbolOutline::Verb;
        const FT_Outline_Funcs functions{
            .move_to = [](const FT_Vector* to, void* self) { return add(self, Verb::move, {to}); },
            .line_to = [](const FT_Vector* to, void* self) { return add(self, Verb::line, {to}); },
            .conic_to =
                [](const FT_Vector* c, const FT_Vector* to, void* self) {
                    return add(self, Verb::quadratic, {c, to});
                },
            .cubic_to =
                [](const FT_Vector* c, const FT_Vector* d, const FT_Vector* to, void* self) {
                    return add(self, Verb::cubic, {c, d, to});
                },
            .shift = 0,
            .delta = 0,
        };
        FT_Outline_Decompose(&outline, &functions, this);
        return std::move(result_);
    }

private:
    static int add(void* self, SymbolOutline::Verb verb, std::initializer_list<const FT_Vector*> vectors) {
        auto& reader = *static_cast<OutlineReader*>(self);
        SymbolOutline::Segment segment{verb, {}};
        Point* point = segment.points;
        for (const FT_Vector* v : vectors)
            *point++ = {static_cast<double>(v->x) * reader.unit_,
                        reader.top_ - static_cast<double>(v->y) * reader.unit_};
        reader.result_.segments.push_back(segment);
        return 0;
    }

    double unit_;
    double top_;
    SymbolOutline result_;
};

}  // namespace

struct Symbols::State {
    State() {
        const auto size = static_cast<FT_Long>(orvelSymbolFontEnd - orvelSymbolFont);
        if (FT_Init_FreeType(&library) != 0) library = nullptr;
        if (!library || FT_New_Memory_Face(library, orvelSymbolFont, size, 0, &face) != 0) face = nullptr;
    }
    ~State() {
        if (library) FT_Done_FreeType(library);
    }

    std::optional<SymbolOutline> load(const std::string& glyph) {
        const FT_UInt index = face ? FT_Get_Name_Index(face, glyph.c_str()) : 0;
        if (index == 0 || FT_Load_Glyph(face, index, FT_LOAD_NO_SCALE) != 0) return std::nullopt;
        // The font spells its ligatures with empty letters; only the symbols have an advance.
        if (face->glyph->metrics.horiAdvance == 0) return std::nullopt;
        return OutlineReader(face).read(face->glyph->outline);
    }

    FT_Library library = nullptr;
    FT_Face face = nullptr;
    std::map<std::string, std::optional<SymbolOutline>, std::less<>> outlines;
};

Symbols::Symbols() : state_(std::make_unique<State>()) {}

Symbols::~Symbols() = default;

const SymbolOutline* Symbols::outline(std::string_view name) const {
    const auto glyph = glyphName(name);
    if (!glyph) return nullptr;
    auto found = state_->outlines.find(*glyph);
    if (found == state_->outlines.end()) {
        constexpr std::size_t mostRemembered = 64;
        if (state_->outlines.size() >= mostRemembered) state_->outlines.clear();
        found = state_->outlines.emplace(*glyph, state_->load(*glyph)).first;
    }
    return found->second ? &*found->second : nullptr;
}

}  // namespace orvel
