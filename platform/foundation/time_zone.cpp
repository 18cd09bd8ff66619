#include "platform/foundation/time_zone.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace orvel {
namespace {

using namespace std::chrono;

// RFC 8536 bounds a zone's offset by -25 and +26 hours.
constexpr hours widestOffset{26};

std::optional<sys_seconds> firstInstantAtOrAfter(sys_seconds time, const TimeZone& zone) {
    sys_seconds before = time - widestOffset;
    sys_seconds after = time + widestOffset;
    while (after - before > seconds{1}) {
        const sys_seconds middle = before + (after - before) / 2;
        const auto offset = zone.utcOffset(middle);
        if (!offset) return std::nullopt;
        (middle + *offset >= time ? after : before) = middle;
    }
    return after;
}

Date date(sys_seconds instant) {
    return Date::fromUnixTime(static_cast<double>(instant.time_since_epoch().count()));
}

}  // namespace

std::optional<Date> instantOf(local_seconds local, const TimeZone& zone) {
    const sys_seconds time{local.time_since_epoch()};  // as if the zone were UTC

    // Every offset that is in force around that time, and with it a candidate.
    std::vector<seconds> offsets;
    for (sys_seconds at = time - widestOffset; at <= time + widestOffset; at += hours{1}) {
        const auto offset = zone.utcOffset(at);
        if (!offset) return std::nullopt;
        if (std::find(offsets.begin(), offsets.end(), *offset) == offsets.end()) offsets.push_back(*offset);
    }
    std::sort(offsets.begin(), offsets.end(), std::greater{});  // the largest offset gives the earliest instant
    for (const seconds offset : offsets)
        if (zone.utcOffset(time - offset) == offset) return date(time - offset);

    const auto first = firstInstantAtOrAfter(time, zone);
    if (!first) return std::nullopt;
    return date(*first);
}

std::optional<Date> startOfDay(year_month_day day, const TimeZone& zone) {
    return instantOf(local_days{day}, zone);
}

local_seconds localTime(Date date, const TimeZone& zone) {
    const sys_seconds instant{seconds{static_cast<long long>(std::floor(date.unixTime()))}};
    return local_seconds{(instant + zone.utcOffset(instant).value_or(seconds{0})).time_since_epoch()};
}

}  // namespace orvel
