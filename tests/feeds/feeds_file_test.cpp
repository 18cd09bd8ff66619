// The person's feeds, on files in memory.
#include <gtest/gtest.h>

#include <algorithm>

#include "feeds/feeds.h"
#include "feeds/feeds_json.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

TEST(FeedsJSON, KeepsEveryMember) {
    const std::vector<Feed> feeds{
        {.name = "disk", .design = "disk", .command = {"df", "-h", "/"}},
        {.name = "été 2",
         .every = *everyText("07:30"),
         .timeout = std::chrono::seconds(90),
         .design = "A\"B",
         .command = {"sh", "-c", "echo $1\n"},
         .first = {"kind=note"},
         .isPaused = true,
         .pausesOnBattery = true,
         .whenOnline = true,
         .isMade = true},
    };
    EXPECT_EQ(*FeedsJSON::decode(*FeedsJSON::encode(feeds)), feeds);
    EXPECT_FALSE(FeedsJSON::encode({{.name = "a", .design = "a", .command = {"\xff"}}}));
}

TEST(FeedsJSON, SaysWhatIsWrongAndWhere) {
    const struct {
        const char* json;
        const char* reason;
        std::size_t offset;
    } rows[] = {
        {"{}", "the feeds must be a list, in brackets", 0},
        {"[1]", "a feed must be an object, in braces", 1},
        {R"([{"every":"1s","command":["a"]}])", "\"name\" is missing", 1},
        {R"([{"name":"../x"}])", "a feed's name begins with \".\" or \"-\"", 9},
        {R"([{"name":"a/b"}])", "a feed's name has \"/\" in it", 9},
        {R"([{"name":"a","command":["a"]}])", "\"every\" is missing: an interval such as \"60s\", or \"07:30\"", 1},
        {R"([{"name":"a","every":"1s"}])", "\"command\" is missing: a list of a program and its arguments", 1},
        {R"([{"name":"a","every":"1s","command":[]}])", "\"command\" is missing: a list of a program and its arguments",
         1},
        {R"([{"command":["a\u0000b"]}])", "\"command\" has a zero byte in it", 13},
        {R"([{"command":"df"}])", "\"command\" must be a list of texts", 12},
        {R"([{"timeout":"2h"}])", "\"timeout\" must be from 1s to 1h, such as \"10s\"", 12},
        {R"([{"paused":1}])", "\"paused\" must be true or false", 11},
        {R"([{"onBattery":"off"}])", "\"onBattery\" must be \"run\" or \"pause\"", 14},
        {R"([{"name":"a","every":"1s","command":["a"]},{"name":"a","every":"1s","command":["b"]}])",
         "there are two feeds named \"a\"", 43},
    };
    for (const auto& row : rows) {
        const auto decoded = FeedsJSON::decode(row.json);
        ASSERT_FALSE(decoded) << row.json;
        EXPECT_EQ(decoded.failure().reason, row.reason);
        EXPECT_EQ(decoded.failure().offset, row.offset) << row.json;
    }
}

class FeedsFile : public testing::Test {
protected:
    Outcome<std::optional<std::string>> add(const char* name) {
        return changeFeeds(
            [&](std::vector<Feed>& feeds) -> Outcome<Done> {
                feeds.push_back({.name = name, .design = name, .command = {"true"}});
                return Done{};
            },
            machine.platform);
    }
    test::FakeMachine machine;
    std::string& file() { return machine.files.contents["/home/ada/.config/orvel/feeds.json"]; }
};

TEST_F(FeedsFile, IsChangedAsAWholeUnderItsLock) {
    ASSERT_TRUE(add("a"));
    EXPECT_TRUE(machine.files.ownerOnly.contains("/home/ada/.config/orvel/feeds.json")) << "commands may hold secrets";
    machine.files.calls.clear();
    ASSERT_TRUE(add("b"));
    const std::string folder = "/home/ada/.config/orvel";
    EXPECT_EQ(machine.files.calls,
              (std::vector<std::string>{"createFolders " + folder, "lock " + folder, "read " + folder + "/feeds.json",
                                        "replace " + folder + "/feeds.json"}));
    EXPECT_EQ(readFeeds(machine.platform)->size(), 2U);
    machine.files.calls.clear();
    ASSERT_TRUE(changeFeeds([](std::vector<Feed>&) -> Outcome<Done> { return Done{}; }, machine.platform));
    EXPECT_FALSE(machine.files.calls.back().starts_with("replace")) << "nothing has changed";
}

TEST_F(FeedsFile, OneThatIsNotUnderstoodIsKeptBesideAndOneThatCannotBeReadStays) {
    file() = "[{]";
    const auto notice = add("a");
    ASSERT_TRUE(notice && *notice);
    EXPECT_NE((*notice)->find("feeds.json:1:"), std::string::npos) << **notice;
    EXPECT_EQ(readFeeds(machine.platform)->size(), 1U);
    const auto kept =
        std::ranges::find_if(machine.files.contents, [](const auto& each) { return each.second == "[{]"; });
    EXPECT_NE(kept, machine.files.contents.end());

    machine.files.fails = [](const std::string& call) { return call.starts_with("read"); };
    const std::string before = file();
    EXPECT_FALSE(add("b"));
    EXPECT_EQ(file(), before);
}

}  // namespace
}  // namespace orvel
