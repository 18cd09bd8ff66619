#include "designer/base64.h"

namespace orvel::designer {

std::string base64(std::string_view bytes) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const auto byte = [&](std::size_t at) {
            return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u;
        };
        const unsigned three = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        for (unsigned letter = 0; letter < 4; ++letter)
            text += i + letter > bytes.size() ? '=' : letters[three >> (18 - 6 * letter) & 63];
    }
    return text;
}

}  // namespace orvel::designer
