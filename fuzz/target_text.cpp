// Any text as a countdown's target: what is shown is one of the forms that there are, and time only ever shortens it.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <regex>
#include <string>

#include "format/countdown_math.h"
#include "fuzz/expect.h"
#include "tests/support/fakes.h"

using namespace orvel;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    FuzzedDataProvider bytes(data, size);
    const double now = bytes.ConsumeFloatingPoint<double>();
    const double later = now + std::abs(bytes.ConsumeFloatingPoint<double>());
    const std::string target = bytes.ConsumeRemainingBytesAsString();
    const auto hoursLeft = [&](double instant) -> std::optional<double> {
        test::FakeMachine machine;
        const FixedClock clock(Date{instant});
        const auto [value, unit] = CountdownMath::remaining(target, machine.platform.with(clock));
        if (unit.empty() && value == "\u2014") return std::nullopt;
        if (unit.empty() && value == "Now") return 0;
        static const std::regex one("1 (hour|day)"), more("([2-9]|[1-9][0-9]+) (hours|days)");
        const std::string text = value + " " + unit;
        fuzz::expect(std::regex_match(text, one) || std::regex_match(text, more), "a count and its unit");
        return std::stod(value) * (unit.starts_with("day") ? 24 : 1);
    };
    const auto left = hoursLeft(now);
    const auto leftLater = hoursLeft(later);
    fuzz::expect(left.has_value() == leftLater.has_value(), "a target is one at any time");
    if (left && now <= later) fuzz::expect(*leftLater <= *left, "less is left later");
    return 0;
}
