#include <gtest/gtest.h>

#include "platform/host/card.h"
#include "tests/support/fakes.h"
#include "views/entry_view.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

using test::FakeMachine;

constexpr const char* twoDesigns =
    R"([{"id":"A","title":"first","kind":"metric","accentHex":"","symbol":"","progress":1.7,"createdAt":0},)"
    R"({"id":"B","title":"second","kind":"note","accentHex":"","symbol":"","createdAt":0}])";

TEST(Provider, ReadsTheClockBeforeTheStoreAndAgainForTheReload) {
    for (const char* stored : {twoDesigns, "[]", "not json"}) {
        FakeMachine machine;
        machine.storedList() = stored;
        std::vector<int> readingsAtFileCalls;
        machine.files.fails = [&](const std::string&) {
            readingsAtFileCalls.push_back(machine.clock.readings);
            return false;
        };
        Provider().getTimeline(
            {},
            [&](const Timeline<WidgetEntry>& timeline) {
                EXPECT_EQ(timeline.entries.at(0).date, Date{1000});
                EXPECT_EQ(timeline.policy.date(), Date{1001 + 3600.0});
                EXPECT_EQ(timeline.entries[0].spec.has_value(), stored == twoDesigns);
            },
            machine.platform);
        EXPECT_EQ(readingsAtFileCalls, (std::vector<int>{1, 1})) << "folder and file, once each, after one reading";
        EXPECT_EQ(machine.clock.readings, 2);
    }
}

TEST(OrvelWidget, ShowsTheProvidersEntriesOnItsBackground) {
    for (const char* stored : {twoDesigns, "[]"}) {
        FakeMachine machine;
        machine.storedList() = stored;
        const auto widgets = OrvelWidgetBundle().body();
        ASSERT_EQ(widgets.size(), 1u);
        const WidgetConfiguration configuration = widgets[0].body();
        EXPECT_EQ(configuration.kind, "OrvelWidget") << "by which hosts remember it";
        EXPECT_EQ(configuration.supportedFamilies.size(), 2u);
        const auto timeline = configuration.timeline({}, machine.platform);
        ASSERT_EQ(timeline.entries.size(), 1u);

        std::optional<WidgetSpec> spec;
        Provider().getSnapshot(
            {}, [&](WidgetEntry entry) { spec = std::move(entry.spec); }, machine.platform);
        const Color nearBlack{22 / 255.0, 22 / 255.0, 25 / 255.0, 1};
        const View expected = OrvelWidgetEntryView(spec)
                                  .body(machine.platform)
                                  .containerBackground(nearBlack, ContainerBackgroundPlacement::widget);
        EXPECT_EQ(timeline.entries[0].view(machine.platform), expected);
        EXPECT_EQ(configuration.placeholder({}, machine.platform).view(machine.platform), expected);
        EXPECT_EQ(configuration.snapshot({}, machine.platform).view(machine.platform), expected);
    }
}

}  // namespace
}  // namespace orvel
