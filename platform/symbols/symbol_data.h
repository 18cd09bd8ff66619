// The files that symbol_data.S makes part of the binary. They last as long as the process.
#pragma once

#include <string_view>

#include "platform/symbols/name_table.h"

namespace orvel::symbol_data {

// Icon fonts. The first one's glyphs have names, the second one's only code points, the same in both of its weights.
std::string_view firstFont();
std::string_view secondFont();
std::string_view secondFontFilled();

NameTable secondCodes();  ///< an icon of the second font -> its code point in hexadecimal
NameTable respelled();    ///< a symbol -> a glyph of the first font
NameTable secondSet();    ///< a symbol -> an icon of the second font; "pill-fill" is the filled one
NameTable drawn();        ///< a part of a symbol -> its outline as path data
NameTable composed();     ///< a symbol -> the parts that it is made of
NameTable synonyms();     ///< an everyday word -> the symbols it may mean, the likeliest first
NameTable enclosable();   ///< symbols that are also drawn within a circle or a square

}  // namespace orvel::symbol_data
