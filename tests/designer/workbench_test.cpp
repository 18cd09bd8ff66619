#include <gtest/gtest.h>

#include "designer/editing/merge.h"
#include "designer/editing/workbench.h"
#include "model/widget_store.h"
#include "tests/support/fakes.h"

namespace orvel::designer {
namespace {

using test::FakeMachine;

class EditedDesign : public testing::Test {
protected:
    WidgetSpec spec(const std::string& title, const std::string& primary) {
        return WidgetSpec(
            {.id = "one", .title = title, .kind = WidgetKind::metric, .primary = primary, .createdAt = Date{}},
            machine.platform);
    }
    // As a feed or a script does it.
    void store(const WidgetSpec& changed) { WidgetStore::save({changed}, machine.platform); }
    std::string stored() {
        const auto specs = WidgetStore::load(machine.platform);
        return specs.empty() ? "nothing" : specs[0].title + " " + specs[0].primary.value_or("-");
    }

    FakeMachine machine;
};

TEST_F(EditedDesign, TakesEachFieldFromWhoeverChangedIt) {
    const WidgetSpec base = spec("A", "1");
    const struct {
        WidgetSpec mine;
        WidgetSpec theirs;
        const char* expected;
        const char* why;
    } rows[] = {
        {spec("B", "1"), spec("A", "2"), "B 2", "different fields"},
        {spec("B", "1"), spec("A", "1"), "B 1", "only mine"},
        {spec("A", "1"), spec("B", "2"), "B 2", "only theirs"},
        {spec("B", "2"), spec("B", "3"), "conflict", "one field in two ways"},
        {spec("B", "1"), spec("B", "2"), "B 2", "one field in the same way"},
    };
    for (const auto& [mine, theirs, expected, why] : rows) {
        const auto both = merged(base, mine, theirs);
        EXPECT_EQ(both ? both->title + " " + *both->primary : "conflict", expected) << why;
    }
}

TEST_F(EditedDesign, IsKeptCurrentByAFeedWhileSomebodyTypes) {
    store(spec("A", "1"));
    Workbench bench(machine.platform);
    const auto seen = bench.revisions().last();
    bench.type({{"title", {"B"}}});
    ASSERT_TRUE(bench.keep());
    store(spec("A", "2"));
    bench.look();
    EXPECT_EQ(bench.conflict(), Conflict::none);
    EXPECT_EQ(*bench.draft().primary, "2");
    EXPECT_TRUE(bench.isUnsaved());
    EXPECT_FALSE(bench.revisions().isCurrent({{"title", {"C"}}}, seen)) << "the title has changed since then";
    EXPECT_FALSE(bench.revisions().isCurrent({{"primary", {"C"}}}, seen)) << "so has the main text";
    EXPECT_TRUE(bench.revisions().isCurrent({{"secondary", {"C"}}}, seen));
    EXPECT_FALSE(bench.revisions().isCurrent({{"secondary", {"C"}}}, bench.revisions().last() + 1));

    ASSERT_TRUE(bench.keep());
    Workbench later(machine.platform);
    store(spec("A", "3"));
    later.look();
    EXPECT_EQ(later.conflict(), Conflict::none) << "what it began from is kept too";
    store(spec("A", "4"));
    ASSERT_TRUE(later.save(false)) << "although nobody has looked since";
    EXPECT_EQ(stored(), "B 4");
    EXPECT_FALSE(later.isUnsaved());

    later.type({{"title", {"C"}}});
    ASSERT_TRUE(later.keep());
    store(spec("D", "4"));
    Workbench last(machine.platform);
    EXPECT_EQ(last.conflict(), Conflict::changed);
    EXPECT_FALSE(last.save(false));
    EXPECT_EQ(stored(), "D 4");
    last.keepMine();
    ASSERT_TRUE(last.save(false));
    EXPECT_EQ(stored(), "C 4");
}

}  // namespace
}  // namespace orvel::designer
