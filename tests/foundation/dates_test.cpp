#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <regex>

#include "platform/foundation/iso8601.h"
#include "platform/foundation/platform.h"

// An effective user that nobody is, by the linker's --wrap: who the process runs for is the real one.
extern "C" uid_t __wrap_geteuid() {
    return 4'000'000'000U;
}

namespace orvel {
namespace {

using namespace std::chrono;

Date utc(int y, unsigned m, unsigned d, seconds time = {}) {
    const sys_seconds instant = sys_days{year{y} / month{m} / day{d}} + time;
    return Date::fromUnixTime(static_cast<double>(instant.time_since_epoch().count()));
}

TEST(Iso8601, ReadsInternetDateTimesStrictly) {
    const struct {
        const char* text;
        Date instant;
    } cases[] = {
        {"2001-01-01T00:00:00Z", Date{0}},
        {"2025-12-31T18:30:00Z", utc(2025, 12, 31, 18h + 30min)},
        {"2025-12-31T18:30:00+02:00", utc(2025, 12, 31, 16h + 30min)},
        {"2025-12-31T18:30:00-05:45", utc(2026, 1, 1, 15min)},
        {"2024-02-29T00:00:00Z", utc(2024, 2, 29)},
        {"2016-12-31T23:59:60Z", utc(2017, 1, 1)},
        {"0000-01-01T00:00:00Z", utc(0, 1, 1)},
    };
    for (const auto& c : cases) EXPECT_EQ(iso8601::dateTime(c.text), c.instant) << c.text;
    for (const char* text :
         {"2023-02-29T00:00:00Z", "2025-13-01T00:00:00Z", "2025-00-01T00:00:00Z", "2025-12-31T24:00:00Z",
          "2025-12-31T18:60:00Z", "2025-12-31T18:30:00+24:00", "2025-12-31T18:30:00+0200", "2025-12-31T18:30:00",
          "2025-12-31T18:30Z", "2025-12-31t18:30:00z", "2025-12-31 18:30:00Z", " 2025-12-31T18:30:00Z",
          "2025-12-31T18:30:00Z ", "2025-12-31T18:30:00.250Z", "+025-12-31T18:30:00Z", ""})
        EXPECT_EQ(iso8601::dateTime(text), std::nullopt) << text;
    EXPECT_EQ(iso8601::dateTime("2001-01-01T00:00:00.25Z", iso8601::Fraction::allowed), Date{0.25});
    EXPECT_EQ(iso8601::dateTime("2001-01-01T00:00:00.Z", iso8601::Fraction::allowed), std::nullopt);
    EXPECT_EQ(iso8601::format(utc(1999, 2, 3, 4h + 5min + 6s)), "1999-02-03T04:05:06Z");
    EXPECT_EQ(iso8601::format(Date{-0.5}), "2000-12-31T23:59:59Z");
    EXPECT_EQ(iso8601::format(Date{0}, 5h + 45min), "2001-01-01T05:45:00+05:45");
    EXPECT_EQ(iso8601::format(Date{0}, -(3h + 30min)), "2000-12-31T20:30:00-03:30");
    const local_seconds evening = local_days{2025y / 12 / 31} + 18h + 30min;
    EXPECT_EQ(iso8601::localDateTime("2025-12-31 18:30"), evening);
    EXPECT_EQ(iso8601::localDateTime("2025-12-31T18:30:07"), evening + 7s);
    for (const char* text :
         {"2025-12-31", "2025-12-31 18", "2025-12-31 18:30:", "2025-02-30 18:30", "2025-12-31 18:30Z"})
        EXPECT_EQ(iso8601::localDateTime(text), std::nullopt) << text;
}

// Days around the changes of every zone, tests/oracle asks.
TEST(StartOfDay, IsAbsentWhereTheZoneGivesNoOffset) {
    struct Endless final : TimeZone {
        std::chrono::sys_seconds from, to;  // what it knows
        std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds instant) const override {
            return instant >= from && instant < to ? std::optional(0s) : std::nullopt;
        }
    } zone;
    const auto day = 2026y / 7 / 1;
    EXPECT_EQ(startOfDay(day, zone), std::nullopt);
    zone.from = sys_days{day};
    zone.to = sys_days{day} + 24h * 365;
    EXPECT_EQ(startOfDay(day, zone), std::nullopt) << "it may have changed the day before";
    EXPECT_FALSE(Platform::system().timeZone.utcOffset(std::chrono::sys_seconds(std::chrono::seconds(1LL << 60))));
}

TEST(SystemPlatform, FollowsTheProcesssZone) {
    const char* const before = std::getenv("TZ");
    const std::string kept = before ? before : "";
    const auto midnight = [](const char* zone) {
        ::setenv("TZ", zone, 1);
        return *startOfDay(2026y / 7 / 1, Platform::system().timeZone);
    };
    EXPECT_EQ(midnight("Asia/Tokyo"), utc(2026, 6, 30, 15h));
    EXPECT_EQ(midnight("America/New_York"), utc(2026, 7, 1, 4h)) << "a change is noticed";
    before ? ::setenv("TZ", kept.c_str(), 1) : ::unsetenv("TZ");
}

TEST(SystemPlatform, AsksForTheRealUser) {
    const passwd* const record = ::getpwuid(::getuid());
    const auto account = Platform::system().accounts.current();
    ASSERT_EQ(account.has_value(), record != nullptr);
    if (record) {
        EXPECT_EQ(account->homeDirectory, record->pw_dir);
    }
}

TEST(SystemPlatform, MakesCanonicalRandomIdentities) {
    const std::string identity = Platform::system().identities.uuid();
    EXPECT_TRUE(
        std::regex_match(identity, std::regex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}")))
        << identity;
    EXPECT_NE(identity, Platform::system().identities.uuid());
}

}  // namespace
}  // namespace orvel
