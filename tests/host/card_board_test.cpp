#include "platform/host/card_board.h"

#include <gtest/gtest.h>
#include <unistd.h>

// Counts child processes; the linker puts this before the C library (--wrap).
namespace {
int children = 0;
}

extern "C" {
pid_t __real_fork();

pid_t __wrap_fork() {
    ++children;
    return __real_fork();
}
}

namespace orvel {
namespace {

/// Counts what cards ask of their surfaces, which are ready for pixels at once.
class CountingWindows final : public WindowSystem {
public:
    struct Counts {
        int opened = 0;
        int closed = 0;
        int moved = 0;
        int drawn = 0;
        int children = 0;  ///< processes that draw
        friend bool operator==(const Counts&, const Counts&) = default;
    };
    Counts counts;
    std::vector<unsigned char> pixels = std::vector<unsigned char>(170 * 170 * 4);  ///< those that were drawn last

    void serve(Handlers) override {}
    std::vector<Output> outputs() const override {
        return {{.name = "A", .primary = true, .roomWidth = 4000, .roomHeight = 600}};
    }
    std::unique_ptr<DesktopSurface> open(SurfaceRequest request) override {
        ++counts.opened;
        return std::make_unique<Surface>(*this, std::move(request));
    }

private:
    class Surface final : public DesktopSurface {
    public:
        Surface(CountingWindows& windows, SurfaceRequest request) : windows_(windows), request_(std::move(request)) {
            draw();
        }
        ~Surface() override { ++windows_.counts.closed; }
        void contentChanged(const std::string&) override { draw(); }
        void move(Anchor, Margin) override { ++windows_.counts.moved; }

    private:
        void draw() {
            ++windows_.counts.drawn;
            const PixelBuffer buffer{windows_.pixels.data(), 170, 170, 170 * 4, 1};
            EXPECT_TRUE(request_.draw(buffer));
        }
        CountingWindows& windows_;
        SurfaceRequest request_;
    };
};

TEST(CardBoard, DrawsOnlyWhatHasChanged) {
    std::vector<CardOnShow> cards;
    for (int i = 0; i < 20; ++i)
        cards.push_back({.key = std::to_string(i),
                         .view = Text("card " + std::to_string(i)),
                         .place = {.output = {.which = OutputChoice::Which::primary}}});
    const KeysThemselves localizer;
    CountingWindows windows;
    CardBoard board({.program = "test", .untitled = "card"}, localizer, [](const std::string& why) { FAIL() << why; });
    using Counts = CountingWindows::Counts;
    const auto afterShowing = [&](const std::vector<CardOnShow>& shown) {
        windows.counts = {};
        children = 0;
        board.show(shown, windows);
        windows.counts.children = children;
        EXPECT_FALSE(board.isDrawing()) << "nothing is left to draw";
        return windows.counts;
    };
    EXPECT_EQ(afterShowing(cards), (Counts{.opened = 20, .drawn = 20, .children = 1}));
    EXPECT_EQ(afterShowing(cards), Counts{});

    const auto before = windows.pixels;
    cards[7].view = Text("another");
    EXPECT_EQ(afterShowing(cards), (Counts{.drawn = 1, .children = 1}));
    EXPECT_NE(windows.pixels, before) << "the last drawing was of another card";

    cards.erase(cards.begin());
    EXPECT_EQ(afterShowing(cards), (Counts{.closed = 1, .moved = 19})) << "the others move up";
    cards[0].clicked = [] {};
    EXPECT_EQ(afterShowing(cards), (Counts{.opened = 1, .closed = 1, .drawn = 1, .children = 1}))
        << "it takes clicks from now on";

    for (CardOnShow& card : cards) card.view = Text("a minute later");
    EXPECT_EQ(afterShowing(cards), (Counts{.drawn = 19, .children = 1}));
}

}  // namespace
}  // namespace orvel
