// Any text as an accent, against one regular expression for all that is a colour.
#include <cstdint>
#include <regex>
#include <string>

#include "format/hex_color.h"
#include "fuzz/expect.h"

using namespace orvel;

namespace {

// 1: three digits, 2: six, 3: the five after a plus.
std::regex notation() {
    std::string blank = "\t|\x20|\xC2\xA0|\xE1\x9A\x80|\xE2\x80\xAF|\xE2\x81\x9F|\xE3\x80\x80";  // Zs and the tab
    for (char last = '\x80'; last <= '\x8A'; ++last) blank += std::string("|\xE2\x80") + last;
    const std::string blanks = "(?:" + blank + ")*";
    return std::regex(blanks + "#?(?:([0-9A-Fa-f]{3})|([0-9A-Fa-f]{6})|\\+([0-9A-Fa-f]{5})|-00000)" + blanks);
}

std::optional<std::uint32_t> reading(const std::string& text) {
    static const std::regex form = notation();
    std::smatch match;
    if (!std::regex_match(text, match, form)) return std::nullopt;
    const auto value = [](const std::string& digits) {
        return static_cast<std::uint32_t>(std::strtoul(("0" + digits).c_str(), nullptr, 16));
    };
    if (match[1].matched) {
        const std::uint32_t three = value(match[1]);
        return 0x11 * ((three >> 8 & 0xF) << 16 | (three >> 4 & 0xF) << 8 | (three & 0xF));
    }
    return value(match[2].matched ? match[2] : match[3]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size > 100) return 0;  // an expression recurses once per repetition
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto color = HexColor::hexString(text);
    const auto expected = reading(text);
    fuzz::expect(color.has_value() == expected.has_value(), "both read a colour, or neither does");
    if (!color) return 0;
    const auto byte = [&](double channel, int shift) { return channel * 255.0 == double(*expected >> shift & 0xFF); };
    fuzz::expect(byte(color->red, 16) && byte(color->green, 8) && byte(color->blue, 0), "the same colour");
    fuzz::expect(color->opacity == 1.0, "opaque");
    return 0;
}
