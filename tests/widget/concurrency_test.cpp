// Eight threads load, save and ask the provider for views at once, on real files; made for ThreadSanitizer.
#include <gtest/gtest.h>

#include <barrier>
#include <thread>

#include "model/widget_store.h"
#include "platform/foundation/posix_files.h"
#include "tests/foundation/files_fixture.h"
#include "tests/support/fakes.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

class Threads : public InFolder {};

TEST_F(Threads, LoadSaveAndRequestConcurrently) {
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
    const View expected = OrvelWidget::content({Date{0}, lists[0][0]}, platform);
    std::vector<std::jthread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back([&, thread] {
            start.arrive_and_wait();
            for (int round = 0; round < 10; ++round) {
                if (thread < 2) WidgetStore::save(lists[(thread + round) % 2], platform);
                const auto loaded = WidgetStore::load(platform);
                EXPECT_TRUE(loaded == lists[0] || loaded == lists[1]) << loaded.size();
                const WidgetEntry entry = Provider().placeholder({}, platform);
                EXPECT_EQ(OrvelWidget::content(entry, platform), expected);
            }
        });
}

}  // namespace
}  // namespace orvel
