#include "format/hex_color.h"

#include <charconv>
#include <string>
#include <system_error>

#include "platform/foundation/unicode.h"

namespace orvel::HexColor {
namespace {

std::optional<std::uint32_t> unsignedHex(std::string_view digits) {
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);
    // Given an unsigned type, from_chars takes no sign and no prefix.
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    if (negative && value != 0) return std::nullopt;
    return value;
}

}  // namespace

Color hex(std::uint32_t value) {
    const auto channel = [value](int shift) { return static_cast<double>((value >> shift) & 0xFF) / 255.0; };
    return {.red = channel(16), .green = channel(8), .blue = channel(0), .opacity = 1.0};
}

std::optional<Color> hexString(std::string_view text) {
    text = unicode::trimmingWhitespace(text);
    if (text.starts_with('#')) text.remove_prefix(1);
    std::string digits(text);
    if (text.size() == 3) digits = {text[0], text[0], text[1], text[1], text[2], text[2]};
    // A colour is ASCII, so counting bytes refuses the same texts as counting characters.
    if (digits.size() != 6) return std::nullopt;
    const auto value = unsignedHex(digits);
    if (!value) return std::nullopt;
    return hex(*value);
}

}  // namespace orvel::HexColor
