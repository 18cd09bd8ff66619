#include "platform/png/png_file.h"

#include <png.h>

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/foundation/release_with.h"

namespace orvel {
namespace {

std::uint32_t dividedByAlpha(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) return 0;
    const auto divided = [&](int shift) { return (((pixel >> shift) & 0xFF) * 255 + alpha / 2) / alpha << shift; };
    return alpha << 24 | divided(16) | divided(8) | divided(0);
}

void divideByAlpha(const PixelBuffer& pixels) {
    for (int y = 0; y < pixels.heightPx; ++y) {
        unsigned char* at = pixels.bytes + std::ptrdiff_t{y} * pixels.strideBytes;
        for (int x = 0; x < pixels.widthPx; ++x, at += 4) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, at, sizeof pixel);
            if (pixel >> 24 == 0xFF) continue;
            pixel = dividedByAlpha(pixel);
            std::memcpy(at, &pixel, sizeof pixel);
        }
    }
}

using FilePtr = std::unique_ptr<std::FILE, ReleaseWith<std::fclose>>;

}  // namespace

Outcome<std::string> pngFile(const PixelBuffer& pixels) {
    divideByAlpha(pixels);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(pixels.widthPx);
    image.height = static_cast<png_uint_32>(pixels.heightPx);
    image.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    char* bytes = nullptr;
    std::size_t size = 0;
    FilePtr file(::open_memstream(&bytes, &size));
    if (!file) return Failure{std::strerror(errno)};
    const bool isWritten =
        png_image_write_to_stdio(&image, file.get(), 0, pixels.bytes, pixels.strideBytes, nullptr) != 0;
    file.reset();  // which completes the bytes
    const std::unique_ptr<char, ReleaseWith<std::free>> owner(bytes);
    if (!isWritten) return Failure{image.message};
    return std::string(bytes, size);
}

}  // namespace orvel
