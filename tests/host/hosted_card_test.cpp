#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include "platform/host/hosted_card.h"
#include "platform/host/child_process.h"
#include "platform/ui/view_words.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

/// A clock that a test sets.
class SetClock final : public Clock {
public:
    Date now() const override { return date; }
    Date date{0};
};

class OneHostedCard : public testing::Test {
protected:
    test::FakeMachine machine;
    SetClock clock;
    Platform platform{clock, machine.files, machine.accounts, machine.zone, machine.identities};
    int requests = 0;
    std::vector<std::pair<double, std::string>> entries;  ///< what the provider answers: dates and texts
    double reload = 3600;                                 ///< after the request

    HostedCard card() {
        const auto entry = [](double date, std::string text) -> HostedEntry {
            return {Date{date}, [text](const Platform&) { return Text(text); }};
        };
        WidgetConfiguration configuration;
        configuration.placeholder = [=](const auto&, const auto&) { return entry(0, "placeholder"); };
        configuration.timeline = [this, entry](const auto&, const Platform& asked) {
            ++requests;
            Timeline<HostedEntry> timeline{{},
                                           TimelineReloadPolicy::after(asked.clock.now().addingTimeInterval(reload))};
            for (const auto& [date, text] : entries) timeline.entries.push_back(entry(date, text));
            return timeline;
        };
        return HostedCard(configuration, {}, platform);
    }
    std::string shown(const HostedCard& card) const { return words(card.view(), KeysThemselves()); }
};

TEST_F(OneHostedCard, ShowsTheEntryThatIsDueAndAsksAgainWhenTheTimelineSays) {
    entries = {{100, "first"}, {130, "second"}};
    clock.date = Date{100};
    HostedCard card = this->card();
    struct Step {
        double at;
        std::string shown;
        bool changed;
        int requests;
        double nextLook;
        std::string why;
    };
    for (const Step& step : std::vector<Step>{
             {119.5, "first", false, 1, 120, "a look each whole minute"},
             {120, "first", false, 1, 130, "on a whole minute the next one, but an entry falls due before"},
             {130, "second", true, 1, 180, "an entry is shown from its date on"},
             {3690, "second", false, 1, 3700, "the reload date comes before the next minute"},
             {3700, "second", false, 2, 3720, "a request at the reload date"},
             {3699, "second", false, 3, 3720, "the clock was set back behind the last request"},
             {50, "first", true, 4, 60, "before every entry's date the first one"},
             {1e6, "second", true, 5, 1e6 + 20, "and forth"}}) {
        clock.date = Date{step.at};
        EXPECT_EQ(card.look(), step.changed) << step.why;
        EXPECT_EQ(shown(card), step.shown) << step.why;
        EXPECT_EQ(requests, step.requests) << step.why;
        EXPECT_EQ(card.nextLook().timeIntervalSinceReferenceDate, step.nextLook) << step.why;
    }
}

TEST_F(OneHostedCard, SleepsWithAProviderThatAsksForImmediateReloads) {
    reload = -10;
    HostedCard card = this->card();
    EXPECT_EQ(shown(card), "placeholder") << "no entry yet";
    EXPECT_EQ(card.nextLook().timeIntervalSinceReferenceDate, 60);
}

TEST_F(OneHostedCard, ChangesWithTheStoreOnlyWhenItsViewDoes) {
    entries = {{0, "old"}};
    HostedCard card = this->card();
    EXPECT_FALSE(card.reload());
    entries = {{0, "new"}};
    EXPECT_TRUE(card.reload());
    EXPECT_EQ(shown(card), "new");
}

TEST(ChildProcess, AnswersOrEndsHoweverItGoes) {
    const auto answer = [](FunctionRef<void()> getReady, std::size_t length) {
        const auto work = [&](const Channel& channel) {
            getReady();
            std::string text(length, ' ');
            if (channel.receive(text.data(), length)) channel.send(text.data(), length);
        };
        const Channel channel = forkChild(work, std::chrono::seconds(1));
        const std::string question(length, 'x');
        std::string text(length, ' ');
        return channel.send(question.data(), length) && channel.receive(text.data(), length) && text == question;
    };
    EXPECT_TRUE(answer([] {}, 1));
    EXPECT_TRUE(answer([] {}, 5'000'000)) << "more than a socket holds";
    EXPECT_FALSE(answer([] { throw std::bad_alloc(); }, 1));
    EXPECT_FALSE(answer([] { std::abort(); }, 1));
    const auto stops = [] {
        for (;;) ::pause();
    };
    EXPECT_FALSE(answer(stops, 1));
    EXPECT_FALSE(answer(stops, 5'000'000));
}

TEST(ChildProcess, EndsWhenItsParentHasGone) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);  // the child process holds the writing end until it exits
    {
        const Channel channel = forkChild(
            [](const Channel& mine) {
                char question;
                mine.receive(&question, 1);
            },
            std::chrono::seconds(20));
    }
    ::close(ends[1]);
    pollfd reading{ends[0], POLLIN, 0};
    EXPECT_EQ(::poll(&reading, 1, 60'000), 1);
    ::close(ends[0]);
}

TEST(ViewWords, AreTheTextsOnOneLineAndOfBoundedLength) {
    const auto said = [](const View& view) { return words(view, KeysThemselves()); };
    EXPECT_EQ(
        said(VStack()({Text("42"), Image::systemName("flag"), Text(""), HStack()({Text("a\nb\u009B"), Spacer()})})),
        "42, a b ");
    EXPECT_EQ(said(Text(LocalizedStringKey::interpolation().integer(38).literal("%"))), "38%");

    std::string longText;
    for (int i = 0; i < 300; ++i) longText += "é";
    EXPECT_EQ(said(Text(longText)).size(), 200 * 2 + std::string("…").size());
    std::string marks = "e";
    for (int i = 0; i < 50'000; ++i) marks += "\xCC\x81";  // all on one letter
    EXPECT_LE(said(Text(marks)).size(), 2100u);
}

}  // namespace
}  // namespace orvel
