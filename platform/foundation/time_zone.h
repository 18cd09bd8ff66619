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

/// The instant at which the zone's clocks show that time. The first one when they show it twice; when a clock change
/// skips it, the first instant after the gap. Absent when the zone gives no offsets around it.
std::optional<Date> instantOf(std::chrono::local_seconds time, const TimeZone& zone);

/// 00:00 of that day, in the same sense.
std::optional<Date> startOfDay(std::chrono::year_month_day day, const TimeZone& zone);

/// What the zone's clocks show at that instant, in whole seconds; UTC where the zone gives no offset.
std::chrono::local_seconds localTime(Date date, const TimeZone& zone);

}  // namespace orvel
