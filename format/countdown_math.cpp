#include "format/countdown_math.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"

namespace orvel::CountdownMath {
namespace {

constexpr double secondsPerHour = 3600;
constexpr double secondsPerDay = 86400;

std::optional<Date> parse(std::string_view text, const TimeZone& zone) {
    if (const auto instant = iso8601::dateTime(text)) return instant;
    if (const auto day = iso8601::fullDate(text)) {
        const std::chrono::sys_seconds midnight = std::chrono::sys_days{*day};
        return Date::fromUnixTime(static_cast<double>(midnight.time_since_epoch().count()));
    }
    if (const auto day = iso8601::fullDate(unicode::prefix(text, 10))) return startOfDay(*day, zone);
    return std::nullopt;
}

// Truncated toward zero, and limited to what the integer holds.
std::int64_t wholeUnits(double seconds, double secondsPerUnit) {
    constexpr double largest = 9223372036854774784.0;  // the largest double below 2^63
    return static_cast<std::int64_t>(std::min(seconds / secondsPerUnit, largest));
}

}  // namespace

std::pair<std::string, std::string> remaining(const std::optional<std::string>& targetISO8601,
                                              const Platform& platform) {
    const auto target = targetISO8601 ? parse(*targetISO8601, platform.timeZone) : std::nullopt;
    if (!target) return {"—", ""};

    const double seconds = target->timeIntervalSince(platform.clock.now());
    if (std::isnan(seconds) || seconds <= 0) return {"Now", ""};
    if (const auto days = wholeUnits(seconds, secondsPerDay); days >= 1)
        return {std::to_string(days), days == 1 ? "day" : "days"};
    const auto hours = wholeUnits(seconds, secondsPerHour);
    return {std::to_string(std::max<std::int64_t>(hours, 1)), hours < 2 ? "hour" : "hours"};
}

}  // namespace orvel::CountdownMath
