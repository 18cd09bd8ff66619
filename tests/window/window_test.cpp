#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/window/open_window_system.h"
#include "platform/window/surface/placement.h"
#include "platform/window/x11/display.h"
#include "platform/window/x11/shape.h"
#include "tests/support/no_free_descriptors.h"

namespace orvel {
namespace {

TEST(Placement, LiesInTheAreaWithTheMarginToTheEdgesItIsAnchoredTo) {
    const PixelRect area{100, 50, 1000, 600};
    const PixelRect box{0, 0, 170, 170};
    EXPECT_EQ(placed(box, area, {1, -1}, 24, 24), (PixelRect{906, 74, 170, 170}));
    EXPECT_EQ(placed(box, area, {-1, 1}, 24, 10), (PixelRect{124, 470, 170, 170}));
    EXPECT_EQ(placed(box, area, {0, 0}, 24, 24), (PixelRect{515, 265, 170, 170})) << "no edge, no margin";
    EXPECT_EQ(intersection(area, {0, 0, 300, 100}), (PixelRect{100, 50, 200, 50}));
    EXPECT_EQ(intersection(area, {0, 0, 50, 50}).width, 0);
}

TEST(OpenWindowSystem, SaysWhyThereIsNone) {
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "XDG_RUNTIME_DIR"}) ::unsetenv(name);
    EventLoop loop;
    EXPECT_EQ(openWindowSystem(loop).failure().reason,
              "there is no display: neither a Wayland compositor nor an X server answers");
    const test::NoFreeDescriptors none;
    EXPECT_EQ(openWindowSystem(loop).failure().reason, "can't connect to a display: Too many open files");
}

TEST(X11Monitors, TheNamedOneIsChosenElseThePrimaryElseTheFirst) {
    std::vector<X11Monitor> monitors{{"A", {}, false}, {"B", {}, true}, {"C", {}, false}};
    EXPECT_EQ(chosenMonitor(monitors, std::nullopt), &monitors[1]);
    EXPECT_EQ(chosenMonitor(monitors, "C"), &monitors[2]);
    EXPECT_EQ(chosenMonitor(monitors, "D"), nullptr);
    monitors[1].primary = false;
    EXPECT_EQ(chosenMonitor(monitors, std::nullopt), &monitors[0]);
}

TEST(RoundedShape, CoversThePixelsWhoseCentresAreInside) {
    const double radius = 30;
    std::vector<int> covered(170, 0);
    for (const PixelRect& row : roundedShape(170, 100, radius))
        for (int y = row.y; y < row.y + row.height; ++y)
            for (int x = 0; x < 170; ++x) {
                const double dx = std::max({radius - (x + 0.5), (x + 0.5) - (170 - radius), 0.0});
                const double dy = std::max({radius - (y + 0.5), (y + 0.5) - (100 - radius), 0.0});
                const bool inside = dx * dx + dy * dy <= radius * radius;
                EXPECT_EQ(x >= row.x && x < row.x + row.width, inside) << x << ' ' << y;
                if (inside) ++covered[static_cast<std::size_t>(x)];
            }
    EXPECT_EQ(covered[85], 100) << "every row is there";
    EXPECT_EQ(roundedShape(10, 10, 0), (std::vector<PixelRect>{{0, 0, 10, 10}}));
}

}  // namespace
}  // namespace orvel
