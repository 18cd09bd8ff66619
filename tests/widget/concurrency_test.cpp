// Eight threads load, save, ask the provider and draw at once, on real files; made for ThreadSanitizer.
#include <gtest/gtest.h>

#include <algorithm>
#include <barrier>
#include <thread>

#include "model/widget_store.h"
#include "platform/foundation/posix_files.h"
#include "platform/host/card.h"
#include "platform/render/cairo_renderer.h"
#include "tests/foundation/files_fixture.h"
#include "tests/support/fakes.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

using Pixels = std::vector<unsigned char>;

Pixels drawn(const View& view, WidgetFamily family) {
    const auto renderer = makeCairoRenderer();
    const KeysThemselves localizer;
    const Scene scene = cardScene(view, family, {renderer->text(), localizer}, renderer->symbols());
    const int width = static_cast<int>(scene.size.width);
    const int height = static_cast<int>(scene.size.height);
    Pixels pixels(static_cast<std::size_t>(width * height * 4));
    EXPECT_TRUE(
        renderer->paint({scene.size, cornerRadius, {{{0, 0}, scene}}}, {pixels.data(), width, height, width * 4, 1.0}));
    return pixels;
}

class Threads : public InFolder {};

TEST_F(Threads, LoadSaveAskAndDrawAtOnce) {
    test::FakeAccounts accounts;
    accounts.account = Account{folder.string()};
    const FixedClock clock(Date{0});
    const Platform& system = Platform::system();
    const Platform platform{clock, files, accounts, system.timeZone, system.identities};
    const auto list = [&](std::size_t length) {
        const WidgetSpec spec(
            {.title = "Crème 🥑 牛乳", .kind = WidgetSpec::Kind::countdown, .targetISO8601 = "2001-01-05 x"},
            platform);
        return std::vector<WidgetSpec>(length, spec);
    };
    const std::vector<WidgetSpec> lists[] = {list(1), list(300)};
    WidgetStore::save(lists[0], platform);

    constexpr int threads = 8;
    std::barrier start(threads);
    std::vector<Pixels> pictures(threads);
    {
        std::vector<std::jthread> running;
        for (int thread = 0; thread < threads; ++thread)
            running.emplace_back([&, thread] {
                start.arrive_and_wait();
                for (int round = 0; round < 5; ++round) {
                    if (thread < 2) WidgetStore::save(lists[(thread + round) % 2], platform);
                    const auto loaded = WidgetStore::load(platform);
                    EXPECT_TRUE(loaded == lists[0] || loaded == lists[1]) << loaded.size();
                    Provider().getTimeline(
                        {},
                        [&](const Timeline<WidgetEntry>& timeline) {
                            const View view = OrvelWidget::content(timeline.entries.at(0), platform);
                            pictures[static_cast<std::size_t>(thread)] = drawn(view, WidgetFamily::systemSmall);
                        },
                        platform);
                }
            });
    }
    EXPECT_TRUE(std::ranges::all_of(pictures, [&](const Pixels& each) { return each == pictures[0]; }));
    EXPECT_TRUE(std::ranges::any_of(pictures[0], [](unsigned char byte) { return byte > 0x80; }))
        << "something is drawn";
}

}  // namespace
}  // namespace orvel
