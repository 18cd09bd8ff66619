// Where a paragraph's lines may end, and where it may be cut. Line breaks are Unicode's (UAX #14) as Pango finds them,
// tailored as that annex allows: signs such as "C++" and "!=" stay whole, a closing quotation mark and an opening
// bracket part at the blank between them, and Khmer, Lao and Burmese break between words. Private to this folder.
#pragma once

#include <pango/pango.h>

#include <span>
#include <string_view>
#include <vector>

namespace orvel {

/// What is allowed before a character.
struct Boundary {
    enum class Line { stays, mayEnd, mayEndWithHyphen };
    Line line = Line::stays;
    bool cut = false;    ///< between clusters that people see as one: graphemes (UAX #29), Indic conjuncts, syllables
    bool split = false;  ///< between letters with an advance of their own, for clusters that are wider than a line
};

/// Blanks hang over a line's end: they take no room there.
bool isBlank(char32_t character);

/// One for each character, and one for the text's end. `attributes` are Pango's for the same text.
std::vector<Boundary> boundaries(std::u32string_view text, std::span<const PangoLogAttr> attributes);

}  // namespace orvel
