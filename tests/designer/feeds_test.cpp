// A command as a person writes it, what a feed changes beside a person, and the last results of a feed.
#include <gtest/gtest.h>

#include "designer/feeds/command_text.h"
#include "designer/feeds/feed_json.h"
#include "designer/editing/merge.h"

namespace orvel::designer {
namespace {

using Words = std::vector<std::string>;

TEST(CommandText, IsSplitAtBlanksOutsideQuotesAndExpandsNothing) {
    const struct {
        const char* text;
        std::optional<Words> words;
        const char* why;
    } cases[] = {
        {"", Words{}, "nothing"},
        {" \t\n", Words{}, "blanks alone"},
        {"df  -h\n/home ", Words{"df", "-h", "/home"}, "any blanks between words"},
        {"sh -c 'who | wc -l'", Words{"sh", "-c", "who | wc -l"}, "a quoted word"},
        {R"(a"b c"'d e'f)", Words{"ab cd ef"}, "quotes within a word"},
        {"''\"\"", Words{""}, "an empty word"},
        {"a '' b", Words{"a", "", "b"}, "an empty word between others"},
        {R"('a\'b)", Words{R"(a\b)"}, "single quotes take all as it stands"},
        {R"("a\"b\\c\nd\$")", Words{R"(a"b\c\nd$)"}, "double quotes leave most backslashes"},
        {R"(a\ b\'c)", Words{"a b'c"}, "a backslash outside quotes"},
        {R"(end\)", Words{R"(end\)"}, "a backslash with nothing behind it"},
        {"$HOME *.txt ~ `x` | > &", Words{"$HOME", "*.txt", "~", "`x`", "|", ">", "&"}, "nothing is expanded"},
        {"grep 'it", std::nullopt, "an open single quote"},
        {"grep \"it'", std::nullopt, "an open double quote"},
    };
    for (const auto& [text, words, why] : cases) EXPECT_EQ(commandWords(text), words) << why << ": " << text;
}

TEST(CommandText, ComesBackAsItWas) {
    const Words cases[] = {{"df"}, {"a b", "", "c'd", "e\"f", "\\", "$x", "line\nline", "~", "ünï"}};
    for (const Words& words : cases) EXPECT_EQ(commandWords(commandText(words)), words) << commandText(words);
}

TEST(Merge, TakesInWhatAnotherChangedUnlessBothChangedAField) {
    const auto with = [](const char* title, const char* primary, std::optional<double> progress = std::nullopt) {
        return WidgetSpec({.id = "a",
                           .title = title,
                           .kind = WidgetKind::metric,
                           .primary = primary,
                           .progress = progress,
                           .createdAt = Date{0}});
    };
    const WidgetSpec base = with("T", "1");
    const struct {
        WidgetSpec mine, theirs;
        std::optional<WidgetSpec> both;
        const char* why;
    } cases[] = {
        {base, with("T", "2"), with("T", "2"), "theirs alone"},
        {with("mine", "1"), base, with("mine", "1"), "mine alone"},
        {with("mine", "1"), with("T", "2", 0.5), with("mine", "2", 0.5), "different fields"},
        {with("T", "2"), with("T", "2"), with("T", "2"), "alike"},
        {with("T", "mine"), with("T", "2"), std::nullopt, "the same field"},
    };
    for (const auto& [mine, theirs, both, why] : cases) {
        const auto merge = merged(base, mine, theirs);
        ASSERT_EQ(merge.has_value(), both.has_value()) << why;
        if (!both) continue;
        EXPECT_EQ(merge->title, both->title) << why;
        EXPECT_EQ(merge->primary, both->primary) << why;
        EXPECT_EQ(merge->progress, both->progress) << why;
    }
}

TEST(FeedNews, HasAResultForEachRunTheNewestFirst) {
    FeedNews news;
    news.take({});
    EXPECT_TRUE(news.results.empty()) << "not run yet";
    for (int second = 1; second <= 7; ++second) {
        news.take({.last = Date{double(second)}});
        news.take({.last = Date{double(second)}, .failure = "run " + std::to_string(second)});
    }
    ASSERT_EQ(news.results.size(), 5U);
    EXPECT_EQ(news.results.front().failure, "run 7") << "what it is told later belongs to the same run";
    EXPECT_EQ(news.results.back().failure, "run 3");
}

}  // namespace
}  // namespace orvel::designer
