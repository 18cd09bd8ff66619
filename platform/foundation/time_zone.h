// The local time zone as a function from instants to offsets, and the calendar arithmetic that needs one.
#pragma once

#include <chrono>
#include <optional>

#include "platform/foundation/date.h"

namespace orvel {

class TimeZone {
public:
    virtual ~TimeZone() = default;

    /// Local time minus UTC at that instant; absent when the instant is beyond the zone's reach.
    virtual std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds instant) const = 0;
};

/// 00:00 of that day in the zone. The first one when the clock shows it twice; when a clock change skips it, the first
/// instant of the day. Absent when the zone gives no offsets around the day.
std::optional<Date> startOfDay(std::chrono::year_month_day day, const TimeZone& zone);

}  // namespace orvel
