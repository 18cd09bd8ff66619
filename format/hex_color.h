// Opaque sRGB colours from hexadecimal notation.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/ui/style.h"

namespace orvel::HexColor {

/// The colour 0xRRGGBB; the top byte is ignored.
Color hex(std::uint32_t value);

/// The colour of a text such as "#3D2A9A", "3d2a9a" or "#abc" (each digit twice), with white space (Unicode Zs and tab)
/// around it. The first of the six digits may be a sign: after "+", the other five count; after "-", they must be 0.
std::optional<Color> hexString(std::string_view text);

}  // namespace orvel::HexColor
