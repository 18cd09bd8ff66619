#include "platform/foundation/text_position.h"

#include <algorithm>

namespace orvel {

TextPosition textPosition(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::string_view inLine = before.substr(before.rfind('\n') + 1);
    const auto startsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    return {before.size(), 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')),
            1 + static_cast<std::size_t>(std::count_if(inLine.begin(), inLine.end(), startsCharacter))};
}

}  // namespace orvel
