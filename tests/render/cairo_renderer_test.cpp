#include "platform/render/cairo_renderer.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <set>

#include "platform/host/card.h"

namespace orvel {
namespace {

using H = HorizontalAlignment;

struct Studio {
    std::unique_ptr<Renderer> renderer = makeCairoRenderer();
    KeysThemselves localizer;

    Scene scene(const View& view) {
        return cardScene(view.containerBackground({0, 0, 1}, ContainerBackgroundPlacement::widget),
                         WidgetFamily::systemSmall, {renderer->text(), localizer}, renderer->symbols());
    }
    Picture picture(const View& view) {
        Scene drawn = scene(view);
        return {drawn.size, cornerRadius, {{{0, 0}, std::move(drawn)}}};
    }
};

// A PNG read back; probes are in pixels, colours are 0xAARRGGBB, premultiplied.
class Pixels {
public:
    explicit Pixels(std::string png) {
        const auto read = [](void* rest, unsigned char* data, unsigned length) {
            auto& bytes = *static_cast<std::string*>(rest);
            if (bytes.size() < length) return CAIRO_STATUS_READ_ERROR;
            std::memcpy(data, bytes.data(), length);
            bytes.erase(0, length);
            return CAIRO_STATUS_SUCCESS;
        };
        surface_.reset(cairo_image_surface_create_from_png_stream(read, &png));
    }
    int width() const { return cairo_image_surface_get_width(surface_.get()); }
    int height() const { return cairo_image_surface_get_height(surface_.get()); }
    std::uint32_t at(int x, int y) const {
        const auto* const row =
            cairo_image_surface_get_data(surface_.get()) + y * cairo_image_surface_get_stride(surface_.get());
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, row + 4 * x, 4);
        return pixel;
    }

private:
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_{nullptr, cairo_surface_destroy};
};

constexpr std::uint32_t blue = 0xFF0000FF;

View ring(double progress) {
    return ZStack()({
                        Circle().stroke(Color{0, 1, 0}, {.lineWidth = 8}),
                        Circle()
                            .trim(0, progress)
                            .stroke(Color{1, 0, 0}, {.lineWidth = 8, .lineCap = LineCap::round})
                            .rotationEffect({-90}),
                    })
        .frame(FixedFrame{.width = 62, .height = 62});
}

TEST(Picture, PaintsTheCardsShapeAtEveryScale) {
    Studio studio;
    for (const double scale : {1.0, 1.5, 2.0, 8.0}) {
        const Pixels pixels(*studio.renderer->png(studio.picture(ring(0.25)), scale));
        const auto px = [&](double points) { return static_cast<int>(points * scale); };
        ASSERT_EQ(pixels.width(), std::lround(170 * scale));
        ASSERT_EQ(pixels.height(), std::lround(170 * scale));
        EXPECT_EQ(pixels.at(0, 0), 0u) << "nothing outside the corner";
        EXPECT_EQ(pixels.at(px(170) - 1, px(3)), 0u);
        EXPECT_EQ(pixels.at(px(7), px(7)), blue);
        EXPECT_EQ(pixels.at(px(85), 0), blue) << "no seam at the edge";
        EXPECT_EQ(pixels.at(px(85), px(170) - 1), blue);
        // The ring's centre is the card's; its line lies 27 to 35 points from it. A quarter is red, from the top on.
        EXPECT_EQ(pixels.at(px(85), px(85)), blue);
        EXPECT_EQ(pixels.at(px(85 + 22), px(85 - 22)), 0xFFFF0000);
        EXPECT_EQ(pixels.at(px(85 + 22), px(85 + 22)), 0xFF00FF00);
        EXPECT_EQ(pixels.at(px(85 - 22), px(85 - 22)), 0xFF00FF00);
        EXPECT_EQ(pixels.at(px(85 - 2), px(85 - 31)), 0xFFFF0000) << "its end is round";
        EXPECT_EQ(pixels.at(px(85), px(85 + 31)), 0xFF00FF00);
        EXPECT_EQ(pixels.at(px(85), px(85 + 37)), blue);
    }
}

TEST(Picture, CutsWhatLeavesTheShape) {
    Studio studio;
    const View large = Circle().fill(Color{1, 0, 0}).frame(FixedFrame{.width = 400, .height = 400});
    const Pixels pixels(*studio.renderer->png(studio.picture(large), 1));
    EXPECT_EQ(pixels.at(169, 169), 0u);
    EXPECT_EQ(pixels.at(162, 162), 0xFFFF0000);
}

// The pixels that differ from the background, as a box in points.
Rect ink(const Pixels& pixels, double scale) {
    int left = pixels.width(), top = pixels.height(), right = 0, bottom = 0;
    const int corner = static_cast<int>(16 * scale);
    for (int y = corner; y < pixels.height() - corner; ++y)
        for (int x = corner; x < pixels.width() - corner; ++x)
            if (pixels.at(x, y) != blue) {
                left = std::min(left, x), right = std::max(right, x + 1);
                top = std::min(top, y), bottom = std::max(bottom, y + 1);
            }
    return {{left / scale, top / scale}, {(right - left) / scale, (bottom - top) / scale}};
}

TEST(Picture, DrawsTextWhereTheLayoutPutIt) {
    Studio studio;
    const View text = VStack(H::leading, 0)({Text("HEH").font(Font::system(34, Font::Weight::heavy))});
    const Scene scene = studio.scene(text);
    const auto& mark = scene.marks.at(0);
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const Rect box = ink(Pixels(*studio.renderer->png(studio.picture(text), scale)), scale);
        EXPECT_NEAR(box.origin.y + box.size.height, std::get<TextMark>(mark.content).baseline, 1 / scale + 0.1);
        EXPECT_NEAR(box.size.height, 0.727 * 34, 1.5 / scale) << "capital letters' height";
        EXPECT_GT(box.origin.x, mark.frame.origin.x);
        EXPECT_LT(box.origin.x + box.size.width, mark.frame.origin.x + mark.frame.size.width);
    }
}

TEST(Picture, MovesTextByQuartersOfAPixel) {
    Studio studio;
    std::set<std::string> pictures;
    for (const double indent : {20.0, 20.25, 20.5, 20.75}) {
        const View empty = Text("").frame(FixedFrame{.width = indent, .height = 1});
        const View row = HStack(VerticalAlignment::top, 0)({empty, Text("HEH")});
        pictures.insert(*studio.renderer->png(
            studio.picture(row.frame({.maxWidth = infinity, .alignment = Alignment::topLeading})), 1));
    }
    EXPECT_EQ(pictures.size(), 4u);
}

TEST(Picture, DrawsColourGlyphsSymbolsAndBoxesForWhatNoFontHas) {
    Studio studio;
    const auto large = [&](const View& view) {
        return Pixels(*studio.renderer->png(studio.picture(view.font(Font::system(60))), 1));
    };
    std::set<std::uint32_t> colors;
    const Pixels emoji = large(Text("🥑"));
    for (int y = 40; y < 130; ++y)
        for (int x = 40; x < 130; ++x) colors.insert(emoji.at(x, y));
    EXPECT_GT(colors.size(), 100u) << "in its own colours";

    // On blue, red tells how much of the white is laid on.
    const auto strongestRed = [&](const char* text) {
        std::uint32_t most = 0;
        const Pixels pixels = large(Text(text).foregroundStyle(HierarchicalShapeStyle::tertiary));
        for (int y = 0; y < pixels.height(); ++y)
            for (int x = 0; x < pixels.width(); ++x) most = std::max(most, pixels.at(x, y) >> 16 & 0xFF);
        return most;
    };
    for (const char* joined : {"नमस्ते", "مرحبا", "বাংলা"}) EXPECT_NEAR(strongestRed(joined), 0.25 * 255, 1) << joined;
    EXPECT_LT(strongestRed("🥑"), 0.26 * 255) << "colours of their own are as faint as the text";

    const Rect symbol = ink(large(Image::systemName("flag.fill")), 1);
    EXPECT_NEAR(symbol.center().x, 85, 2);
    EXPECT_NEAR(symbol.center().y, 85, 2);
    EXPECT_NEAR(symbol.size.height, 60, 6);
    EXPECT_GT(ink(large(Text("\U0010FFFD")), 1).size.height, 10);
}

TEST(Picture, TurnsTextAndKeepsItInside) {
    Studio studio;
    const View text = Text("HHHH").font(Font::system(20, Font::Weight::heavy));
    const Rect level = ink(Pixels(*studio.renderer->png(studio.picture(text), 2)), 2);
    const Rect upright = ink(Pixels(*studio.renderer->png(studio.picture(text.rotationEffect({90})), 2)), 2);
    EXPECT_NEAR(upright.size.height, level.size.width, 1.5);
    EXPECT_NEAR(upright.size.width, level.size.height, 1.5);
}

}  // namespace
}  // namespace orvel
