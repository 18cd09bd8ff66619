#include "platform/symbols/icon_font.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <initializer_list>
#include <map>
#include <utility>

namespace orvel {
namespace {

// Collects a glyph's outline in the unit square that its em square fills.
class OutlineReader {
public:
    OutlineReader(const FT_Face face, double scale)
        : unit_(scale / face->units_per_EM), left_((1 - scale) / 2), top_(left_ + face->ascender * unit_) {}

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
            *point++ = {reader.left_ + static_cast<double>(v->x) * reader.unit_,
                        reader.top_ - static_cast<double>(v->y) * reader.unit_};
        reader.result_.segments.push_back(segment);
        return 0;
    }

    double unit_;
    double left_;
    double top_;
    SymbolOutline result_;
};

}  // namespace

struct IconFont::State {
    explicit State(std::string_view bytes) {
        if (FT_Init_FreeType(&library) != 0) library = nullptr;
        const auto* const data = reinterpret_cast<const FT_Byte*>(bytes.data());
        if (!library || FT_New_Memory_Face(library, data, static_cast<FT_Long>(bytes.size()), 0, &face) != 0)
            face = nullptr;
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() {
        if (library) FT_Done_FreeType(library);
    }

    // The fonts contain letters without an advance, which spell ligatures, and control characters without an outline.
    Glyph icon(FT_UInt glyph) const {
        if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) return none;
        const bool shows = face->glyph->metrics.horiAdvance != 0 && face->glyph->outline.n_points != 0;
        return shows ? glyph : none;
    }

    FT_Library library = nullptr;
    FT_Face face = nullptr;
    std::map<std::string, Glyph> names;  ///< once they are listed
};

IconFont::IconFont(std::string_view bytes, double scale) : bytes_(bytes), scale_(scale) {}

IconFont::~IconFont() = default;

IconFont::State& IconFont::state() {
    if (!state_) state_ = std::make_unique<State>(bytes_);
    return *state_;
}

IconFont::Glyph IconFont::named(const std::string& name) {
    const FT_Face face = state().face;
    if (!face) return none;
    if (state_->names.empty()) return state_->icon(FT_Get_Name_Index(face, name.c_str()));
    const auto found = state_->names.find(name);
    return found == state_->names.end() ? none : found->second;
}

IconFont::Glyph IconFont::coded(char32_t codePoint) {
    const FT_Face face = state().face;
    return face ? state().icon(FT_Get_Char_Index(face, codePoint)) : none;
}

SymbolOutline IconFont::outline(Glyph glyph) {
    const FT_Face face = state().face;
    if (!face || FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0) return {};
    return OutlineReader(face, scale_).read(face->glyph->outline);
}

std::vector<std::string> IconFont::glyphNames() {
    std::vector<std::string> result;
    const FT_Face face = state().face;
    for (FT_UInt glyph = 1; face && glyph < static_cast<FT_UInt>(face->num_glyphs); ++glyph) {
        char name[128];
        if (state_->icon(glyph) == none || FT_Get_Glyph_Name(face, glyph, name, sizeof name) != 0) continue;
        state_->names.emplace(name, glyph);
        result.emplace_back(name);
    }
    return result;
}

}  // namespace orvel
