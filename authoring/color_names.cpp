#include "authoring/color_names.h"

#include <algorithm>

#include "format/hex_color.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {

std::string accentText(const std::string& text) {
    const auto named = std::ranges::find_if(namedColors, [&](const NamedColor& color) {
        return typingMistakes(unicode::trimmingWhitespace(text), color.name) == 0;
    });
    return named == namedColors.end() ? text : std::string(named->hex);
}

std::string nearColor(std::string_view text) {
    text = unicode::trimmingWhitespace(text);
    if (const auto names = nearestWords(text, colorNames()); !names.empty()) {
        const std::string name(names.front());
        return sentence("did you mean {0}, which is {1}?", name, accentText(name));
    }
    // As other programs write them: "0x0A84FF", and with opacity behind, "#0A84FFCC".
    std::string_view digits = text;
    for (const std::string_view mark : {"#", "0x", "0X"})
        if (digits.starts_with(mark)) digits.remove_prefix(mark.size());
    const std::size_t count = digits.size() == 8 ? 6 : digits.size() == 4 ? 3 : digits.size();
    const std::string candidate = "#" + std::string(digits.substr(0, count));
    if (HexColor::hexString(digits.substr(0, count)) && candidate != text)
        return sentence("did you mean \"{0}\"?", candidate);
    return {};
}

}  // namespace orvel
