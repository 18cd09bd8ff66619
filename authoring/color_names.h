// Colours by the names that people use for them, all easy to see on a card.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace orvel {

struct NamedColor {
    std::string_view name;
    std::string_view hex;  ///< as a design stores it
};

inline constexpr std::array namedColors{
    NamedColor{"blue", "#0A84FF"},   NamedColor{"brown", "#AC8E68"},  NamedColor{"cyan", "#64D2FF"},
    NamedColor{"gray", "#98989D"},   NamedColor{"green", "#30D158"},  NamedColor{"indigo", "#7D7AFF"},
    NamedColor{"mint", "#66D4CF"},   NamedColor{"orange", "#FF9F0A"}, NamedColor{"pink", "#FF375F"},
    NamedColor{"purple", "#BF5AF2"}, NamedColor{"red", "#FF453A"},    NamedColor{"teal", "#40C8E0"},
    NamedColor{"white", "#FFFFFF"},  NamedColor{"yellow", "#FFD60A"},
};

constexpr auto colorNames() {
    std::array<std::string_view, namedColors.size()> names{};
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = namedColors[i].name;
    return names;
}

/// The colour of such a name, in any letter case, as a design stores it; any other text as it is.
std::string accentText(const std::string& text);

/// "did you mean …?" with a colour near a text that is none, or nothing.
std::string nearColor(std::string_view text);

}  // namespace orvel
