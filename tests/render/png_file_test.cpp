#include "platform/png/png_file.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace orvel {
namespace {

// Every colour at every opacity, in rows that are followed by unused bytes.
TEST(PngFile, KeepsEveryPixel) {
    constexpr std::uint32_t side = 256;
    constexpr std::uint32_t stride = side + 3;
    std::vector<std::uint32_t> pixels(stride * side, 0x12345678);
    const auto pixel = [](std::uint32_t alpha, std::uint32_t value) {
        const std::uint32_t green = std::min(alpha, value);
        return alpha << 24 | green << 8 | alpha / 3 << 16 | (alpha - green);
    };
    for (std::uint32_t y = 0; y < side; ++y)
        for (std::uint32_t x = 0; x < side; ++x) pixels[y * stride + x] = pixel(x, y);

    auto file = pngFile({reinterpret_cast<unsigned char*>(pixels.data()), side, side, 4 * stride});
    ASSERT_TRUE(file);
    const auto read = [](void* rest, unsigned char* data, unsigned length) {
        auto& bytes = *static_cast<std::string*>(rest);
        if (bytes.size() < length) return CAIRO_STATUS_READ_ERROR;
        std::memcpy(data, bytes.data(), length);
        bytes.erase(0, length);
        return CAIRO_STATUS_SUCCESS;
    };
    cairo_surface_t* const surface = cairo_image_surface_create_from_png_stream(read, &*file);
    ASSERT_EQ(cairo_image_surface_get_width(surface), int{side});
    ASSERT_EQ(cairo_image_surface_get_height(surface), int{side});
    std::size_t wrong = 0;
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            std::uint32_t seen = 0;
            std::memcpy(&seen,
                        cairo_image_surface_get_data(surface) +
                            y * static_cast<std::uint32_t>(cairo_image_surface_get_stride(surface)) + 4 * x,
                        sizeof seen);
            wrong += seen != pixel(x, y);
        }
    }
    EXPECT_EQ(wrong, 0u);
    cairo_surface_destroy(surface);
}

}  // namespace
}  // namespace orvel
