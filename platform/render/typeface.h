// One size and weight of the system font with its fallbacks, as Pango shapes it, and the widths of the marks that lines
// may end with. Private to this folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/render/handles.h"
#include "platform/ui/style.h"

namespace orvel {

inline constexpr const char* systemFont = "Inter";
inline constexpr const char* ellipsisMark = "…";
inline constexpr std::string_view lineSeparator = "\u2028";
inline constexpr const char* hyphenMark = "‐";

double points(int pangoUnits);

/// What a line shows, in reading order.
std::string_view textOf(const PangoLayoutLine& line);

class Typeface {
public:
    /// The context must outlive the typeface.
    Typeface(PangoContext* context, const Font& font);

    /// One paragraph; line separators end its lines. The text from the byte `mark` on is shaped by itself, without
    /// kerning to the text before.
    ObjectPtr<PangoLayout> shaped(const std::string& text, std::optional<std::size_t> mark = {}) const;

    /// Pango units.
    int ellipsisWidth() const { return marks().ellipsis; }
    int hyphenWidth() const { return marks().hyphen; }
    int tabWidth() const { return marks().tab; }

    const PangoFontDescription* description() const { return description_.get(); }

private:
    struct Marks {
        int ellipsis, hyphen, tab;
    };
    const Marks& marks() const;

    PangoContext* context_;
    PangoFontDescriptionPtr description_;
    mutable std::optional<Marks> marks_;
};

}  // namespace orvel
