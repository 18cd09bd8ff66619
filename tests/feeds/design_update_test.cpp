// From what a command prints to its design, on files in memory.
#include "feeds/design_update.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>

#include "authoring/designs.h"
#include "feeds/feeds.h"
#include "model/widget_store.h"
#include "platform/foundation/iso8601.h"
#include "platform/ui/language.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

class FeedOf : public testing::Test {
protected:
    FeedOf() {
        WidgetStore::save({WidgetSpec({.id = "front", .title = "t", .kind = WidgetKind::note, .createdAt = Date{}})},
                          machine.platform);
        configure(feed);
    }
    void configure(const Feed& each) {
        (void)changeFeeds(
            [&](std::vector<Feed>& feeds) -> Outcome<Done> {
                feeds = {each};
                return Done{};
            },
            machine.platform);
    }
    // Why it failed; empty when it succeeded.
    std::string update(const std::string& text) {
        const auto output = readOutput(text);
        if (!output) return output.failure().reason;
        feed = *findFeed(*readFeeds(machine.platform), "disk");
        const auto updated = updateDesign(feed, *output, machine.platform);
        return updated ? "" : updated.failure().reason;
    }
    WidgetSpec design() { return WidgetStore::load(machine.platform).at(1); }
    void edit(const std::function<void(WidgetSpec&)>& change) {
        auto specs = WidgetStore::load(machine.platform);
        change(specs.at(1));
        WidgetStore::save(specs, machine.platform);
    }
    bool wroteStore() {
        return std::ranges::any_of(machine.files.calls, [](const std::string& call) {
            return call.starts_with("replace") && call.ends_with("widgets.json");
        });
    }

    test::FakeMachine machine;
    Feed feed{.name = "disk", .design = "disk", .command = {"true"}};
};

TEST_F(FeedOf, MakesItsDesignBehindTheOthersAndChangesItInItsPlace) {
    EXPECT_EQ(update("title=Disk\nprimary=12 GB\nsecondary=of 80\n"), "");
    EXPECT_EQ(design().id, "disk");
    EXPECT_EQ(WidgetStore::load(machine.platform).front().id, "front");
    edit([](WidgetSpec& spec) { spec.accentHex = "#FFFFFF"; });
    EXPECT_EQ(update("{\"primary\": 11.5}"), "");
    EXPECT_EQ(design().primary, "11.5");
    EXPECT_EQ(design().secondary, "of 80") << "what isn't named stays";
    EXPECT_EQ(design().accentHex, "#FFFFFF");
    EXPECT_FALSE(machine.files.contents.contains("/state/orvel/history")) << "a person's steps stay within reach";

    machine.files.calls.clear();
    EXPECT_EQ(update("primary=11.5"), "");
    EXPECT_FALSE(wroteStore()) << "the same content";
    WidgetStore::remove("disk", machine.platform);
    EXPECT_NE(update("primary=3").find("has been removed"), std::string::npos);
    EXPECT_EQ(WidgetStore::load(machine.platform).size(), 1U);
}

TEST_F(FeedOf, AddsToANewDesignWhatItWasGiven) {
    configure(feed = {.name = "disk", .design = "disk", .command = {"true"}, .first = {"kind=progress", "title=Disk"}});
    EXPECT_EQ(update("38%"), "");
    EXPECT_EQ(design().title, "Disk");
    EXPECT_EQ(design().progress, 0.38);
    edit([](WidgetSpec& spec) { spec.title = "Mine"; });
    EXPECT_EQ(update("39%"), "");
    EXPECT_EQ(design().title, "Mine") << "only a new one";
}

TEST_F(FeedOf, UnderstandsWhatCommandsPrint) {
    struct Row {
        const char* output;
        WidgetKind kind;
        std::optional<std::string> primary;
        std::optional<double> progress;
        std::vector<std::string> items = {};
    };
    const Row rows[] = {
        {"42", WidgetKind::metric, "42", {}},
        {"  42 users \r\n\n", WidgetKind::metric, "42 users", {}},
        {"a=b", WidgetKind::metric, "a=b", {}},
        {"38%", WidgetKind::progress, {}, 0.38},
        {"progress=19/50", WidgetKind::progress, {}, 0.38},
        {"{\"progress\": 0.5, \"primary\": null}", WidgetKind::progress, {}, 0.5},
        {"item=a, b\nitem=c", WidgetKind::list, {}, {}, {"a, b", "c"}},
        {"{\"items\": [\"a\", 2]}", WidgetKind::list, {}, {}, {"a", "2"}},
        {"item=a\nsymbol=flag\nsecondary=s", WidgetKind::list, {}, {}, {"a"}},
        {"target=2031-05-14\nsecondary=s", WidgetKind::countdown, {}, {}},
        {"primary=42\nsecondary=s\nprogress=0.5", WidgetKind::metric, "42", 0.5},
        {"kind=note\nprimary==x=\n", WidgetKind::note, "=x=", {}},
    };
    for (const Row& row : rows) {
        WidgetStore::save({WidgetStore::load(machine.platform).front()}, machine.platform);
        configure(feed = {.name = "disk", .design = "disk", .command = {"true"}});
        ASSERT_EQ(update(row.output), "") << row.output;
        EXPECT_EQ(design().kind, row.kind) << row.output;
        EXPECT_EQ(design().primary, row.primary) << row.output;
        EXPECT_EQ(design().progress, row.progress) << row.output;
        EXPECT_EQ(design().items.value_or(std::vector<std::string>()), row.items) << row.output;
    }
    // The list as it should be at the end.
    edit([](WidgetSpec& spec) { spec.kind = WidgetKind::list; });
    EXPECT_EQ(update("milk"), "");
    EXPECT_EQ(design().items, std::vector<std::string>{"milk"});
    EXPECT_EQ(update("{\"items\": []}"), "");
    EXPECT_EQ(design().items, std::nullopt);
}

TEST_F(FeedOf, RefusesWhatItDoesNotUnderstandAsAWhole) {
    ASSERT_EQ(update("primary=1"), "");
    const struct {
        const char* output;
        const char* reason;
    } rows[] = {
        {"", "it printed nothing; lines such as primary=42, one JSON object or one line of text are wanted"},
        {"\xff", "its output isn't UTF-8"},
        {"primary=2\nhello", "its output: \"hello\": a field and its value are wanted, such as title=\"Active now\""},
        {"primary=2\nprimry=3", "its output: no field is called \"primry\"; did you mean \"primary\"?"},
        {"primary=2\nprogress=much",
         "its output: progress \"much\": a number from 0 to 1 is wanted, such as 0.38, 38% or 19/50"},
        {"primary=2\nid=front", "\"id\" isn't a feed's to change"},
        {"{\"id\": \"front\"}", "its output: \"id\" isn't a feed's to change"},
        {"{\"primary\": 2", "its output is no valid JSON: 1:1: a bracket is never closed"},
        {"{\"primary\": {}}",
         "its output: \"primary\" is an object; a text, a number, a list of texts or null is wanted"},
        {"{\"primary\": [1]}", "its output: \"primary\" is a list; only \"items\" may be one"},
        {"{\"items\": [null]}", "its output: \"items\" must be a list of texts"},
    };
    for (const auto& [output, reason] : rows) {
        EXPECT_EQ(update(output), reason);
        EXPECT_EQ(design().primary, "1") << output;
    }
}

TEST_F(FeedOf, SaysSinceWhenThereIsNoNewsAndTakesItBack) {
    ASSERT_EQ(update("primary=1\nsecondary=of 80"), "");
    const auto noNews = [&](double sinceAgo) {
        const auto said = sayNoNews(feed, machine.platform.clock.now().addingTimeInterval(-sinceAgo), machine.platform);
        return said ? "" : said.failure().reason;
    };
    EXPECT_EQ(noNews(60), "");
    EXPECT_EQ(design().secondary, "no news since 02:15") << "at two hours from UTC";
    machine.files.calls.clear();
    EXPECT_EQ(noNews(0), "");
    EXPECT_EQ(design().secondary, "no news since 02:15") << "the first counts";
    EXPECT_FALSE(wroteStore());
    EXPECT_EQ(update("primary=2"), "");
    EXPECT_EQ(design().secondary, "of 80");

    EXPECT_EQ(noNews(86400), "");
    EXPECT_EQ(design().secondary, "no news since 2000-12-31");
    EXPECT_EQ(update("secondary=of 90"), "");
    EXPECT_EQ(design().secondary, "of 90") << "the command's own line";

    EXPECT_EQ(noNews(60), "");
    edit([](WidgetSpec& spec) { spec.secondary = "mine"; });
    const FixedClock tomorrow(machine.platform.clock.now().addingTimeInterval(86400));
    EXPECT_TRUE(sayNoNews(feed, Date{}, machine.platform.with(tomorrow)));
    EXPECT_EQ(update("primary=3"), "");
    EXPECT_EQ(design().secondary, "mine") << "a person's, meanwhile";

    EXPECT_EQ(noNews(60), "");
    EXPECT_TRUE(sayNoNews(feed, Date{}, machine.platform.with(tomorrow)));
    EXPECT_EQ(design().secondary, "no news since 2001-01-01") << "the next day";
    EXPECT_EQ(update("primary=3"), "");
    EXPECT_EQ(design().secondary, "mine");

    edit([](WidgetSpec& spec) { spec.kind = WidgetKind::progress; });
    EXPECT_EQ(noNews(60), "");
    EXPECT_TRUE(design().title.starts_with("disk: no news since 0")) << "a ring has no second line: " << design().title;
    EXPECT_TRUE(takeNoNewsBack(feed, machine.platform));
    EXPECT_EQ(design().title, "disk");

    machine.files.fails = [](const std::string& call) { return call.starts_with("replace /state"); };
    EXPECT_NE(noNews(60), "");
    EXPECT_EQ(design().title, "disk") << "what can't be kept isn't replaced";
}

TEST_F(FeedOf, SaysThereIsNoNewsInTheLanguageOfTheMoment) {
    ASSERT_EQ(update("primary=1\nsecondary=of 80"), "");
    const Date since = machine.platform.clock.now();
    // Each stands for another process: the library remembers what it has looked up until the locale changes.
    const auto speak = [](const char* language) {
        std::setlocale(LC_MESSAGES, "C");
        useLanguage(language);
    };
    speak("de");
    EXPECT_TRUE(sayNoNews(feed, since, machine.platform));
    EXPECT_EQ(design().secondary, "nichts Neues seit 02:16");
    speak("ja");
    EXPECT_TRUE(sayNoNews(feed, since, machine.platform));
    EXPECT_EQ(design().secondary, "02:16 以降更新なし");
    speak("en");
    EXPECT_EQ(update("primary=2"), "");
    EXPECT_EQ(design().secondary, "of 80") << "whatever language the line is in";
}

}  // namespace
}  // namespace orvel
