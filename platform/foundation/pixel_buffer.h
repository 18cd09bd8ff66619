// A view of pixels that the caller owns: 32 bits each, alpha in the highest byte of the machine's word, then red, green
// and blue, premultiplied by alpha.
#pragma once

#include <cstddef>

namespace orvel {

struct PixelBuffer {
    unsigned char* bytes = nullptr;
    int widthPx = 0;
    int heightPx = 0;
    int strideBytes = 0;
    double scale = 1;  ///< pixels to the point
};

/// In bytes.
inline std::size_t size(const PixelBuffer& pixels) {
    return static_cast<std::size_t>(pixels.strideBytes) * static_cast<std::size_t>(pixels.heightPx);
}

}  // namespace orvel
