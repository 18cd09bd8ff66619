// The icons that symbols are made of: glyphs of two icon fonts, and outlines of a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/symbols/icon_font.h"
#include "platform/symbols/symbol_data.h"

namespace orvel {

class Icons {
public:
    /// The symbol that one glyph shows, if one does.
    std::optional<SymbolOutline> symbol(std::string_view name);

    /// Such a symbol, an outline of the table, or an icon under the name it has in the second font; ".fill" is "-fill"
    /// there.
    std::optional<SymbolOutline> part(std::string_view name);

    /// The names of all symbols that one glyph shows, in no order; some may come twice.
    std::vector<std::string> symbolNames();

private:
    struct Icon {
        IconFont* font;
        IconFont::Glyph glyph;
    };
    std::optional<Icon> find(std::string_view name);
    std::optional<Icon> ofSecondFont(std::string_view name);

    // Both sets should look equally large, but the second one leaves more space around its icons.
    static constexpr double secondScale = 1.06;

    IconFont first_{symbol_data::firstFont()};
    IconFont second_{symbol_data::secondFont(), secondScale};
    IconFont secondFilled_{symbol_data::secondFontFilled(), secondScale};
    NameTable secondCodes_ = symbol_data::secondCodes();
    NameTable respelled_ = symbol_data::respelled();
    NameTable secondSet_ = symbol_data::secondSet();
    NameTable drawn_ = symbol_data::drawn();
};

}  // namespace orvel
