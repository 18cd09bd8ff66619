#include <gtest/gtest.h>

#include "platform/window/open_window_system.h"
#include "platform/events/timer.h"
#include "tests/support/fake_compositor.h"

namespace orvel {
namespace {

using namespace std::chrono_literals;
using test::FakeCompositor;

class WaylandCard : public testing::Test {
protected:
    void open(FakeCompositor::Offers offers, Placement placement = {}) {
        ::unsetenv("DISPLAY");
        compositor.emplace(offers);
        setUp(*compositor);
        compositor->start();
        auto opened = openWindowSystem(loop);
        ASSERT_TRUE(opened);
        windows = *std::move(opened);
        windows->serve({.outputsChanged = [this] { ++outputChanges; },
                        .notice = [this](const auto& sentence) { notices.push_back(sentence); },
                        .ended = [this](auto why) { ends.push_back(why.value_or("closed")); }});
        surface = windows->open(request(placement));
    }
    SurfaceRequest request(Placement placement) {
        return {.width = 170,
                .height = 170,
                .cornerRadius = 20,
                .placement = std::move(placement),
                .program = "card",
                .title = "42, ACTIVE USERS",
                .draw = [this](const PixelBuffer& pixels) {
                    scales.push_back(pixels.scale);
                    return true;
                }};
    }

    /// Lets the surface handle events until the condition holds on the compositor's thread, for a minute at most.
    bool until(std::function<bool(FakeCompositor&)> holds) {
        bool held = false;
        const auto end = std::chrono::steady_clock::now() + 60s;
        DelayTimer again(loop, [&] {
            compositor->on([&] { held = holds(*compositor); });
            if (held || std::chrono::steady_clock::now() > end) return loop.stop();
            again.set(2ms);
        });
        again.set(1ms);
        loop.run();
        return held;
    }
    void pass(std::chrono::milliseconds time) {
        DelayTimer over(loop, [&] { loop.stop(); });
        over.set(time);
        loop.run();
    }
    static auto has(std::string request, std::size_t times = 1) {
        return [=](FakeCompositor& asked) { return asked.count(request) >= times; };
    }

    std::function<void(FakeCompositor&)> setUp = [](FakeCompositor& made) { made.addOutput("A", 1); };
    EventLoop loop;
    std::optional<FakeCompositor> compositor;
    std::unique_ptr<WindowSystem> windows;
    std::unique_ptr<DesktopSurface> surface;  // goes first
    int outputChanges = 0;
    std::vector<double> scales;
    std::vector<std::string> notices, ends;
};

TEST_F(WaylandCard, IsALayerSurfaceThatIsInNobodysWay) {
    open({}, {.anchor = {-1, 1}, .margin = {12, 12}});
    ASSERT_TRUE(until(has("wl_surface.attach")));
    for (const char* const request :
         {"zwlr_layer_shell_v1.get_layer_surface 1 card", "zwlr_layer_surface_v1.set_size 170 170",
          "zwlr_layer_surface_v1.set_anchor 6", "zwlr_layer_surface_v1.set_margin 12 12 12 12",
          "zwlr_layer_surface_v1.set_exclusive_zone 0", "zwlr_layer_surface_v1.set_keyboard_interactivity 0",
          "wl_surface.set_input_region", "zwlr_layer_surface_v1.ack_configure 1"})
        EXPECT_EQ(compositor->count(request), 1u) << request;
    EXPECT_EQ(compositor->count("wl_region.add"), 0u) << "clicks go through";
}

TEST_F(WaylandCard, HasExactlyTheOutputsPixels) {
    setUp = [](FakeCompositor& made) {
        made.addOutput("A", 2);
        made.preferredScale = 180;
    };
    open({.fractionalScales = true});
    ASSERT_TRUE(until(has("wl_surface.attach 0 0 255")));
    EXPECT_EQ(compositor->count("wp_viewport.set_destination 170 170"), 1u);
    EXPECT_EQ(compositor->count("wl_surface.set_buffer_scale"), 0u);
    EXPECT_EQ(scales.back(), 1.5);
    compositor->on([&] { wl_resource_post_event(compositor->newest("wp_fractional_scale_v1"), 0, 210u); });
    EXPECT_TRUE(until(has("wl_surface.attach 0 0 298"))) << "297.5 rounds up";
}

TEST_F(WaylandCard, WithoutFractionalScalesTakesTheOutputsWholeOne) {
    setUp = [](FakeCompositor& made) { made.addOutput("A", 2); };
    open({});
    ASSERT_TRUE(until(has("wl_surface.attach 0 0 340")));
    EXPECT_EQ(compositor->count("wl_surface.set_buffer_scale 2"), 1u);
}

TEST_F(WaylandCard, DrawsOncePerFrameWhateverComesIn) {
    setUp = [](FakeCompositor& made) {
        made.addOutput("A", 1);
        made.answersFrames = false;
    };
    open({});
    ASSERT_TRUE(until(has("wl_surface.attach")));
    for (int i = 0; i < 5; ++i) surface->contentChanged("43");
    pass(50ms);
    EXPECT_EQ(scales.size(), 1u) << "the first frame hasn't been shown yet";
    compositor->on([&] { compositor->finishFrame(); });
    EXPECT_TRUE(until(has("wl_surface.attach", 2)));
    compositor->on([&] { compositor->finishFrame(); });
    pass(50ms);
    EXPECT_EQ(scales.size(), 2u) << "nothing has changed since";
}

TEST_F(WaylandCard, ComesBackWithItsOutputAndNeverInALoop) {
    FakeCompositor::Output* output = nullptr;
    setUp = [&](FakeCompositor& made) { output = made.addOutput("A", 1); };
    open({});
    ASSERT_TRUE(until(has("wl_surface.attach")));
    const auto unplug = [&] {
        compositor->on([&] {
            wl_resource_post_event(compositor->newest("zwlr_layer_surface_v1"), 1);
            compositor->removeOutput(output);
        });
    };
    unplug();
    pass(400ms);
    EXPECT_EQ(compositor->count("zwlr_layer_shell_v1.get_layer_surface"), 1u) << "there is no output";
    compositor->on([&] { output = compositor->addOutput("A", 1); });
    EXPECT_TRUE(until(has("wl_surface.attach", 2)));

    compositor->on([&] {
        compositor->closesAtOnce = true;
        wl_resource_post_event(compositor->newest("zwlr_layer_surface_v1"), 1);
    });
    EXPECT_TRUE(until(has("zwlr_layer_shell_v1.get_layer_surface", 4))) << "it goes on trying";
    pass(300ms);
    EXPECT_LE(compositor->count("zwlr_layer_shell_v1.get_layer_surface"), 6u) << "longer waits each time";
}

TEST_F(WaylandCard, WaitsForTheOutputItWasMeantFor) {
    open({}, {.output = "B"});
    pass(300ms);
    EXPECT_EQ(compositor->count("wl_compositor.create_surface"), 0u);
    compositor->on([&] { compositor->addOutput("B", 2); });
    EXPECT_TRUE(until(has("wl_surface.attach 0 0 340")));
}

TEST_F(WaylandCard, IsAPlainWindowWithoutLayerShell) {
    open({.layerShell = false});
    ASSERT_TRUE(until(has("wl_surface.attach")));
    EXPECT_EQ(compositor->count("xdg_toplevel.set_title 42, ACTIVE USERS"), 1u);
    surface->contentChanged("43, ACTIVE USERS");
    EXPECT_TRUE(until(has("xdg_toplevel.set_title 43")));
    compositor->on([&] { wl_resource_post_event(compositor->newest("xdg_toplevel"), 1); });
    EXPECT_TRUE(until([&](auto&) { return ends == std::vector<std::string>{"closed"}; }));
}

TEST_F(WaylandCard, SaysAtTheStartWhatItCantDo) {
    const std::pair<FakeCompositor::Offers, std::vector<std::string>> cases[] = {
        {{.fractionalScales = true}, {}},
        {{}, {"the Wayland compositor tells programs whole scales alone; at any other, cards are a little blurred"}},
        {{.fractionalScales = true, .plasmaShell = true},
         {"KWin puts cards away together with the windows when it shows the desktop"}},
        {{.layerShell = false, .fractionalScales = true},
         {"the Wayland compositor has no layer shell, and there is no X server; cards are plain windows, which lie "
          "where "
          "the compositor puts them"}},
    };
    for (const auto& [offers, expected] : cases) {
        notices.clear();
        open(offers);
        EXPECT_EQ(notices, expected);
        surface.reset();
        windows.reset();
    }
}

TEST_F(WaylandCard, TellsOnceWhenTheCompositorIsGone) {
    open({});
    ASSERT_TRUE(until(has("wl_surface.attach")));
    compositor->on([&] { compositor->destroyClient(); });
    EXPECT_TRUE(until([&](auto&) { return !ends.empty(); }));
    surface->contentChanged("43");
    pass(50ms);
    EXPECT_EQ(ends, (std::vector<std::string>{"the Wayland compositor has gone away"}));
}

}  // namespace
}  // namespace orvel
