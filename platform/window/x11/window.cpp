#include "platform/window/x11/window.h"

#include <xcb/shape.h>

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

#include "platform/window/x11/shape.h"

namespace orvel {
namespace {

struct VisualChoice {
    std::uint8_t depth;
    xcb_visualid_t visual;
};

/// A visual of 32-bit pixels: with alpha at depth 32, without at depth 24.
VisualChoice chooseVisual(const xcb_screen_t& screen, std::uint8_t depth) {
    for (auto each = xcb_screen_allowed_depths_iterator(&screen); each.rem; xcb_depth_next(&each)) {
        if (each.data->depth != depth) continue;
        for (auto visual = xcb_depth_visuals_iterator(each.data); visual.rem; xcb_visualtype_next(&visual))
            if (visual.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.data->red_mask == 0xFF0000)
                return {depth, visual.data->visual_id};
    }
    return {screen.root_depth, screen.root_visual};
}

std::vector<xcb_rectangle_t> wire(const std::vector<PixelRect>& rects) {
    std::vector<xcb_rectangle_t> result;
    for (const PixelRect& rect : rects)
        result.push_back({static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
                          static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)});
    return result;
}

}  // namespace

X11Window::X11Window(X11Stacking& stacking, const SurfaceRequest& request, Keeper keeper, Transparency transparency,
                     double scale, PixelRect area)
    : stacking_(stacking), display_(stacking.display()), scale_(scale), area_(area) {
    xcb_connection_t* const x = display_.connection();
    const xcb_screen_t& screen = display_.screen();
    const VisualChoice choice = chooseVisual(screen, transparency == Transparency::blended ? 32 : 24);
    depth_ = choice.depth;
    colormap_ = xcb_generate_id(x);
    xcb_create_colormap(x, XCB_COLORMAP_ALLOC_NONE, colormap_, screen.root, choice.visual);

    id_ = xcb_generate_id(x);
    // A visual other than the root's needs a border and colours of its own.
    const std::uint32_t overrideRedirect = keeper == Keeper::itself;
    const std::array<std::uint32_t, 4> values{0, 0, overrideRedirect, colormap_};
    xcb_create_window(x, depth_, id_, screen.root, static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, choice.visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
                      values.data());
    graphics_ = xcb_generate_id(x);
    xcb_create_gc(x, graphics_, id_, 0, nullptr);

    describe(display_, id_, request, keeper, area);
    const Clicks clicks = request.clicked ? Clicks::taken : Clicks::passThrough;
    shape(request.cornerRadius * scale, transparency, clicks);
    if (clicks == Clicks::taken) takeClicks();
    setTitle(request.title);
    draw(request);
    stacking_.keep(id_, request.placement.layer, keeper);
    xcb_map_window(x, id_);
}

X11Window::~X11Window() {
    stacking_.release(id_);
    xcb_free_gc(display_.connection(), graphics_);
    xcb_destroy_window(display_.connection(), id_);
    xcb_free_colormap(display_.connection(), colormap_);
}

void X11Window::shape(double cornerRadiusPx, Transparency transparency, Clicks clicks) {
    xcb_connection_t* const x = display_.connection();
    const auto* const extension = xcb_get_extension_data(x, &xcb_shape_id);
    if (!extension || !extension->present) return;
    const auto setShape = [&](xcb_shape_sk_t kind, const std::vector<PixelRect>& rects) {
        const auto rectangles = wire(rects);
        xcb_shape_rectangles(x, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, id_, 0, 0,
                             static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    };
    if (clicks == Clicks::passThrough) setShape(XCB_SHAPE_SK_INPUT, {});
    if (transparency == Transparency::cut)
        setShape(XCB_SHAPE_SK_BOUNDING, roundedShape(area_.width, area_.height, cornerRadiusPx));
}

// The pointer becomes a hand, from the server's own cursor font.
void X11Window::takeClicks() {
    constexpr std::string_view cursors = "cursor";
    constexpr std::uint16_t hand = 60;  // XC_hand2; its mask is the next glyph
    xcb_connection_t* const x = display_.connection();
    const xcb_font_t font = xcb_generate_id(x);
    const xcb_cursor_t cursor = xcb_generate_id(x);
    xcb_open_font(x, font, static_cast<std::uint16_t>(cursors.size()), cursors.data());
    xcb_create_glyph_cursor(x, cursor, font, font, hand, hand + 1, 0, 0, 0, 0xFFFF, 0xFFFF, 0xFFFF);
    const std::array<std::uint32_t, 2> values{XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE, cursor};
    xcb_change_window_attributes(x, id_, XCB_CW_EVENT_MASK | XCB_CW_CURSOR, values.data());
    xcb_free_cursor(x, cursor);
    xcb_close_font(x, font);
}

void X11Window::setTitle(const std::string& title) {
    orvel::setTitle(display_, id_, title);
}

void X11Window::move(int xPx, int yPx) {
    area_.x = xPx;
    area_.y = yPx;
    const std::array<std::uint32_t, 2> values{static_cast<std::uint32_t>(xPx), static_cast<std::uint32_t>(yPx)};
    xcb_configure_window(display_.connection(), id_, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
}

void X11Window::draw(const SurfaceRequest& request) {
    xcb_connection_t* const x = display_.connection();
    const int strideBytes = area_.width * 4;
    PixelBuffer pixels{nullptr, area_.width, area_.height, strideBytes, scale_};
    std::vector<unsigned char> bytes(size(pixels));
    pixels.bytes = bytes.data();
    if (!request.draw(pixels)) return;

    constexpr bool lowByteFirst = std::endian::native == std::endian::little;
    if ((xcb_get_setup(x)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) != lowByteFirst)
        for (std::size_t i = 0; i < bytes.size(); i += 4) std::reverse(pixels.bytes + i, pixels.bytes + i + 4);

    const xcb_pixmap_t picture = xcb_generate_id(x);
    xcb_create_pixmap(x, depth_, picture, id_, static_cast<std::uint16_t>(area_.width),
                      static_cast<std::uint16_t>(area_.height));
    constexpr std::uint32_t header = 64;  // bytes, and some more
    const std::uint32_t mostBytes = xcb_get_maximum_request_length(x) * 4 - header;
    const int mostRows = std::max(1, static_cast<int>(mostBytes / static_cast<std::uint32_t>(strideBytes)));
    for (int row = 0; row < area_.height; row += mostRows) {
        const int rows = std::min(mostRows, area_.height - row);
        xcb_put_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, picture, graphics_, static_cast<std::uint16_t>(area_.width),
                      static_cast<std::uint16_t>(rows), 0, static_cast<std::int16_t>(row), 0, depth_,
                      static_cast<std::uint32_t>(rows * strideBytes),
                      pixels.bytes + static_cast<std::ptrdiff_t>(row) * strideBytes);
    }
    xcb_change_window_attributes(x, id_, XCB_CW_BACK_PIXMAP, &picture);
    xcb_clear_area(x, 0, id_, 0, 0, 0, 0);
    xcb_free_pixmap(x, picture);
}

}  // namespace orvel
