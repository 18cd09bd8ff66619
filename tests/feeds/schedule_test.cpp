// When feeds are due, by numbers alone.
#include "feeds/schedule.h"

#include <gtest/gtest.h>

#include "platform/foundation/iso8601.h"

namespace orvel {
namespace {

using namespace std::chrono_literals;

/// Berlin's rule for 2026: summer time from 03-29T01:00Z to 10-25T01:00Z.
class Berlin final : public TimeZone {
public:
    std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds instant) const override {
        using namespace std::chrono;
        const bool isSummer =
            instant >= sys_days{2026y / March / 29} + 1h && instant < sys_days{2026y / October / 25} + 1h;
        return isSummer ? 2h : 1h;
    }
};

Date at(const char* text) {
    return iso8601::dateTime(text, iso8601::Fraction::allowed).value();
}

TEST(Schedule, ReadsAndWritesIntervalsAndTimesOfDay) {
    const struct {
        const char* given;
        const char* written;  ///< null: refused
    } rows[] = {
        {"1", "1s"},
        {"60s", "1m"},
        {"90s", "90s"},
        {"120m", "2h"},
        {"24h", "1d"},
        {"366d", "366d"},
        {"07:30", "07:30"},
        {"00:00", "00:00"},
        {"23:59", "23:59"},
        {"0s", nullptr},
        {"-5s", nullptr},
        {"367d", nullptr},
        {"1.5s", nullptr},
        {"24:00", nullptr},
        {"7:30", nullptr},
        {"07:60", nullptr},
        {"", nullptr},
        {"s", nullptr},
        {"5 m", nullptr},
        {"5w", nullptr},
        {"07:3x", nullptr},
        {"99999999999999999999s", nullptr},
        {"9223372036854775807d", nullptr},
    };
    for (const auto& [given, written] : rows) {
        const auto every = everyText(given);
        ASSERT_EQ(static_cast<bool>(every), written != nullptr) << given;
        if (written) {
            EXPECT_EQ(text(*every), written) << given;
        }
    }
}

TEST(Schedule, IsDueAfterItsIntervalOrAtItsTimeOfDay) {
    const struct {
        const char* every;
        const char* last;
        int failures;
        const char* now;
        const char* due;
        const char* why;
    } rows[] = {
        {"60s", "2026-06-01T10:00:00Z", 0, "2026-06-01T10:00:01Z", "2026-06-01T10:01:00Z", "an interval"},
        {"60s", "2026-06-01T10:00:00Z", 1, "2026-06-01T10:00:01Z", "2026-06-01T10:01:00Z", "a first failure"},
        {"60s", "2026-06-01T10:00:00Z", 2, "2026-06-01T10:00:01Z", "2026-06-01T10:02:00Z", "a second"},
        {"60s", "2026-06-01T10:00:00Z", 4, "2026-06-01T10:00:01Z", "2026-06-01T10:08:00Z", "a fourth"},
        {"60s", "2026-06-01T10:00:00Z", 5, "2026-06-01T10:00:01Z", "2026-06-01T10:10:00Z", "ten times is the most"},
        {"60s", "2026-06-01T10:00:00Z", 999, "2026-06-01T10:00:01Z", "2026-06-01T10:10:00Z", "ten times is the most"},
        {"1h", "2026-06-01T10:00:00Z", 0, "2026-06-03T10:00:00Z", "2026-06-01T11:00:00Z", "slept through it: overdue"},
        {"1h", "2026-06-01T10:00:00Z", 0, "2026-06-01T08:00:00Z", "2026-06-01T08:00:00Z", "the clock was set back"},
        {"07:30", "2026-06-01T05:29:59Z", 0, "2026-06-01T05:29:59Z", "2026-06-01T05:30:00Z", "later today"},
        {"07:30", "2026-06-01T05:30:00Z", 0, "2026-06-01T05:30:01Z", "2026-06-02T05:30:00Z", "just run: tomorrow"},
        {"07:30", "2026-06-01T05:30:00Z", 9, "2026-06-01T05:30:01Z", "2026-06-02T05:30:00Z", "failures don't move it"},
        {"00:00", "2026-06-01T21:59:00Z", 0, "2026-06-01T21:59:00Z", "2026-06-01T22:00:00Z", "the local midnight"},
        {"07:30", "2026-03-28T06:30:00Z", 0, "2026-03-28T06:31:00Z", "2026-03-29T05:30:00Z", "into summer: 23 hours"},
        {"07:30", "2026-10-24T05:30:00Z", 0, "2026-10-24T05:31:00Z", "2026-10-25T06:30:00Z", "out of it: 25 hours"},
        {"02:30", "2026-03-28T01:30:00Z", 0, "2026-03-28T01:31:00Z", "2026-03-29T01:00:00Z", "a time that is skipped"},
        {"02:30", "2026-03-29T01:00:00Z", 0, "2026-03-29T01:01:00Z", "2026-03-30T00:30:00Z", "and the one after it"},
        {"02:30", "2026-10-25T00:30:00Z", 0, "2026-10-25T00:31:00Z", "2026-10-26T01:30:00Z", "shown twice: once"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(
            iso8601::format(Schedule::due(*everyText(row.every), at(row.last), row.failures, at(row.now), Berlin())),
            row.due)
            << row.why;
}

TEST(Schedule, NeitherDriftsNorMakesUpForWhatItMissed) {
    const Every minute = *everyText("60s");
    const struct {
        const char* now;
        const char* planned;
    } rows[] = {
        {"2026-06-01T10:01:00.25Z", "2026-06-01T10:01:00Z"},  // woken a little late
        {"2026-06-01T10:02:30Z", "2026-06-01T10:02:00Z"},     // a run took longer than the interval
        {"2026-06-01T12:00:59Z", "2026-06-01T12:00:00Z"},     // two hours of sleep
    };
    for (const auto& [now, planned] : rows) {
        const Date run = Schedule::planned(minute, at("2026-06-01T10:01:00Z"), at(now));
        EXPECT_EQ(iso8601::format(run), planned);
        EXPECT_GT(Schedule::due(minute, run, 0, at(now), Berlin()), at(now)) << now;
    }
    EXPECT_EQ(Schedule::planned(*everyText("07:30"), at("2026-06-01T05:30:00Z"), at("2026-06-02T04:00:00Z")),
              at("2026-06-02T04:00:00Z"));
}

}  // namespace
}  // namespace orvel
