#include "platform/foundation/time_zone.h"

#include <algorithm>
#include <vector>

namespace orvel {
namespace {

using namespace std::chrono;

// RFC 8536 bounds a zone's offset by -25 and +26 hours.
constexpr hours widestOffset{26};

std::optional<sys_seconds> firstInstantAtOrAfter(sys_seconds midnight, const TimeZone& zone) {
    sys_seconds before = midnight - widestOffset;
    sys_seconds after = midnight + widestOffset;
    while (after - before > seconds{1}) {
        const sys_seconds middle = before + (after - before) / 2;
        const auto offset = zone.utcOffset(middle);
        if (!offset) return std::nullopt;
        (middle + *offset >= midnight ? after : before) = middle;
    }
    return after;
}

}  // namespace

std::optional<Date> startOfDay(year_month_day day, const TimeZone& zone) {
    const sys_seconds midnight = sys_days{day};  // as if the zone were UTC

    // Every offset that is in force around the day, and with it a candidate for local midnight.
    std::vector<seconds> offsets;
    for (sys_seconds at = midnight - widestOffset; at <= midnight + widestOffset; at += hours{1}) {
        const auto offset = zone.utcOffset(at);
        if (!offset) return std::nullopt;
        if (std::ranges::find(offsets, *offset) == offsets.end()) offsets.push_back(*offset);
    }
    std::ranges::sort(offsets, std::ranges::greater{});  // the largest offset gives the earliest instant
    for (const seconds offset : offsets) {
        const sys_seconds candidate = midnight - offset;
        if (zone.utcOffset(candidate) == offset)
            return Date::fromUnixTime(static_cast<double>(candidate.time_since_epoch().count()));
    }

    const auto first = firstInstantAtOrAfter(midnight, zone);
    if (!first) return std::nullopt;
    return Date::fromUnixTime(static_cast<double>(first->time_since_epoch().count()));
}

}  // namespace orvel
