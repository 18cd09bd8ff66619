#include <gtest/gtest.h>

#include <cmath>

#include "format/countdown_math.h"
#include "format/hex_color.h"
#include "platform/foundation/iso8601.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

using Pair = std::pair<std::string, std::string>;

// What a target reads at an instant, in a zone two hours east of Greenwich.
Pair remainingAt(Date now, const std::optional<std::string>& target) {
    const test::FakeMachine machine;
    const FixedClock clock(now);
    const Platform platform{clock, const_cast<test::MemoryFiles&>(machine.files), machine.accounts, machine.zone,
                            machine.identities};
    return CountdownMath::remaining(target, platform);
}

TEST(CountdownMath, CountsWholeDaysThenHours) {
    const struct {
        double seconds;
        Pair expected;
    } cases[] = {
        {-86400, {"Now", ""}},     {0, {"Now", ""}},        {0.001, {"1", "hour"}},       {3600, {"1", "hour"}},
        {7199.999, {"1", "hour"}}, {7200, {"2", "hours"}},  {86399.999, {"23", "hours"}}, {86400, {"1", "day"}},
        {172799, {"1", "day"}},    {172800, {"2", "days"}}, {86400000, {"1000", "days"}}};
    const Date target = *iso8601::dateTime("2030-01-01T00:00:00Z");
    for (const auto& c : cases)
        EXPECT_EQ(remainingAt(target.addingTimeInterval(-c.seconds), "2030-01-01T00:00:00Z"), c.expected) << c.seconds;
}

TEST(CountdownMath, ReadsTheTargetInThreeStages) {
    const struct {
        const char* target;
        const char* instant;  // the point in time that it means
    } cases[] = {
        {"2025-12-31T18:30:00Z", "2025-12-31T18:30:00Z"},
        {"2025-12-31T18:30:00+02:00", "2025-12-31T16:30:00Z"},
        {"2025-12-31", "2025-12-31T00:00:00Z"},
        {"2025-12-31T18:30:00.250Z", "2025-12-30T22:00:00Z"},
        {"2025-12-31T09:00", "2025-12-30T22:00:00Z"},
        {"2025-12-31 and whatever follows", "2025-12-30T22:00:00Z"},
        {"2025-12-31T18:30:00Z ", "2025-12-30T22:00:00Z"},
    };
    for (const auto& c : cases) {
        const Date instant = *iso8601::dateTime(c.instant);
        EXPECT_EQ(remainingAt(instant, c.target), Pair("Now", "")) << c.target;
        EXPECT_EQ(remainingAt(instant.addingTimeInterval(-1), c.target), Pair("1", "hour")) << c.target;
    }
    for (const char* target :
         {"2025-12-31\u0301", "31.12.2025", "2025-02-30", "2025-02-30T09:00:00Z", " 2025-12-31", "tomorrow", ""})
        EXPECT_EQ(remainingAt(Date{0}, target), Pair("—", "")) << target;
    EXPECT_EQ(remainingAt(Date{0}, std::nullopt), Pair("—", ""));
    EXPECT_EQ(remainingAt(Date{NAN}, "2025-12-31"), Pair("Now", ""));
}

TEST(CountdownMath, ReadsTheClockOnceAndAcceptsAnyReading) {
    test::FakeMachine machine;
    CountdownMath::remaining("2025-12-31", machine.platform);
    EXPECT_EQ(machine.clock.readings, 1);
    EXPECT_EQ(remainingAt(Date{-1e300}, "2025-12-31").second, "days");
    EXPECT_EQ(remainingAt(Date{-INFINITY}, "2025-12-31").second, "days");
    EXPECT_EQ(remainingAt(Date{INFINITY}, "2025-12-31").first, "Now");
}

TEST(HexColor, ReadsTexts) {
    const auto bytes = [](int r, int g, int b) { return Color{r / 255.0, g / 255.0, b / 255.0, 1}; };
    const struct {
        const char* text;
        Color color;
    } cases[] = {
        {"#3D2A9A", bytes(61, 42, 154)},     {"3D2A9A", bytes(61, 42, 154)},
        {"  #3d2a9a\t", bytes(61, 42, 154)}, {"\u00A0#3d2a9a\u3000", bytes(61, 42, 154)},
        {"#abc", bytes(170, 187, 204)},      {"#ABCDEF", bytes(171, 205, 239)},
        {"+12345", bytes(1, 35, 69)},        {"-00000", bytes(0, 0, 0)},
    };
    for (const auto& c : cases) EXPECT_EQ(HexColor::hexString(c.text), c.color) << c.text;
    for (const char* text :
         {"-00001", "+ab",       "-00",   "",       "#",       "   ",    "##abcdef", "# 3D2A9A", "# 3D2A9", "#3D2A9A\n",
          "\n#abc", "#3D2A9AFF", "#3D2A", "#3D2A9", "#3D2A9G", "0x1234", "12 456",   "é1234",    "１23456", "牛"})
        EXPECT_EQ(HexColor::hexString(text), std::nullopt) << text;
}

TEST(HexColor, IgnoresTheTopByte) {
    EXPECT_EQ(HexColor::hex(0x3D2A9A), HexColor::hexString("#3D2A9A"));
    EXPECT_EQ(HexColor::hex(0xFF3D2A9A), HexColor::hexString("#3D2A9A"));
    EXPECT_EQ(hexText(HexColor::hex(0)), "#000000FF");
}

}  // namespace
}  // namespace orvel
