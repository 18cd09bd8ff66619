#include "tools/terminal.h"

#include "platform/foundation/unicode.h"

namespace orvel::tools {

std::string printable(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        // U+0080 to U+009F are control characters too: C2 80 to C2 9F.
        const bool second = c == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        if (second) ++i;
        result += second || c < 0x20 || c == 0x7F ? ' ' : text[i];
    }
    return result;
}

std::string padded(std::string text, std::size_t columns) {
    const std::size_t width = unicode::columns(text);
    if (width < columns) text.append(columns - width, ' ');
    return text;
}

}  // namespace orvel::tools
