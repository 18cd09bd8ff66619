// Pixels as a PNG file: 32-bit RGBA, compressed for speed. Nearly all pixels of a card are equal to the one before, so
// that no row is filtered: it takes a third of the time of Cairo's own writer, and isn't larger.
#pragma once

#include <string>

#include "platform/foundation/outcome.h"
#include "platform/foundation/pixel_buffer.h"

namespace orvel {

/// Divides the pixels by their alpha where they are. The failure is in libpng's words.
Outcome<std::string> pngFile(const PixelBuffer& pixels);

}  // namespace orvel
