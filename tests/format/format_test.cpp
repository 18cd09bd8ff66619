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
        {-86400, {"Now", ""}},
        {-1, {"Now", ""}},
        {0, {"Now", ""}},
        {0.001, {"1", "hour"}},
        {59, {"1", "hour"}},
        {3599, {"1", "hour"}},
        {3600, {"1", "hour"}},
        {7199.999, {"1", "hour"}},
        {7200, {"2", "hours"}},
        {10800, {"3", "hours"}},
        {86399.999, {"23", "hours"}},
        {86400, {"1", "day"}},
        {172799, {"1", "day"}},
        {172800, {"2", "days"}},
        {604800, {"7", "days"}},
        {31536000, {"365", "days"}},
        {86400000, {"1000", "days"}},
    };
    const Date target = *iso8601::dateTime("2030-01-01T00:00:00Z");
    for (const auto& c : cases)
        EXPECT_EQ(remainingAt(target.addingTimeInterval(-c.seconds), "2030-01-01T00:00:00Z"), c.expected) << c.seconds;
}

TEST(CountdownMath, ReadsTheTargetInThreeStages) {
    const struct {
        const char* target;
        const char* instant;  // the point in time that it means, or null
    } cases[] = {
        {"2025-12-31T18:30:00Z", "2025-12-31T18:30:00Z"},
        {"2025-12-31T18:30:00+02:00", "2025-12-31T16:30:00Z"},
        {"2025-12-31", "2025-12-31T00:00:00Z"},
        {"2025-12-31T18:30:00.250Z", "2025-12-30T22:00:00Z"},
        {"2025-12-31T09:00", "2025-12-30T22:00:00Z"},
        {"2025-12-31 and whatever follows", "2025-12-30T22:00:00Z"},
        {"2025-12-31T18:30:00Z ", "2025-12-30T22:00:00Z"},
        {"2025-12-31\u0301", nullptr},
        {"31.12.2025", nullptr},
        {"2025-02-30", nullptr},
        {"2025-02-30T09:00:00Z", nullptr},
        {" 2025-12-31", nullptr},
        {"tomorrow", nullptr},
        {"", nullptr},
    };
    for (const auto& c : cases) {
        if (!c.instant) {
            EXPECT_EQ(remainingAt(Date{0}, c.target), Pair("—", "")) << c.target;
            continue;
        }
        const Date instant = *iso8601::dateTime(c.instant);
        EXPECT_EQ(remainingAt(instant, c.target), Pair("Now", "")) << c.target;
        EXPECT_EQ(remainingAt(instant.addingTimeInterval(-1), c.target), Pair("1", "hour")) << c.target;
    }
    EXPECT_EQ(remainingAt(Date{0}, std::nullopt), Pair("—", ""));
}

TEST(CountdownMath, ReadsTheClockOnceAndBearsAnyReading) {
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
        std::optional<Color> color;
    } cases[] = {
        {"#3D2A9A", bytes(61, 42, 154)},
        {"3D2A9A", bytes(61, 42, 154)},
        {"  #3d2a9a\t", bytes(61, 42, 154)},
        {"\u00A0#3d2a9a\u3000", bytes(61, 42, 154)},
        {"#abc", bytes(170, 187, 204)},
        {"#ABCDEF", bytes(171, 205, 239)},
        {"+12345", bytes(1, 35, 69)},
        {"-00000", bytes(0, 0, 0)},
        {"-00001", std::nullopt},
        {"+ab", std::nullopt},
        {"-00", std::nullopt},
        {"", std::nullopt},
        {"#", std::nullopt},
        {"   ", std::nullopt},
        {"##abcdef", std::nullopt},
        {"# 3D2A9A", std::nullopt},
        {"# 3D2A9", std::nullopt},
        {"#3D2A9A\n", std::nullopt},
        {"\n#abc", std::nullopt},
        {"#3D2A9AFF", std::nullopt},
        {"#3D2A", std::nullopt},
        {"#3D2A9", std::nullopt},
        {"#3D2A9G", std::nullopt},
        {"0x1234", std::nullopt},
        {"12 456", std::nullopt},
        {"é1234", std::nullopt},
        {"１23456", std::nullopt},
        {"牛", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(HexColor::hexString(c.text), c.color) << c.text;
}

TEST(HexColor, IgnoresTheTopByte) {
    EXPECT_EQ(HexColor::hex(0x3D2A9A), HexColor::hexString("#3D2A9A"));
    EXPECT_EQ(HexColor::hex(0xFF3D2A9A), HexColor::hexString("#3D2A9A"));
    EXPECT_EQ(hexText(HexColor::hex(0)), "#000000FF");
}

}  // namespace
}  // namespace orvel
