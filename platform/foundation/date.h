// A point in time: seconds, held as a double, since 2001-01-01T00:00:00Z. It carries no zone and no calendar.
#pragma once

#include <compare>

namespace orvel {

struct Date {
    double timeIntervalSinceReferenceDate = 0;

    /// The Unix time of the reference date, in seconds.
    static constexpr double referenceUnixTime = 978307200.0;

    static constexpr Date fromUnixTime(double seconds) { return {seconds - referenceUnixTime}; }
    constexpr double unixTime() const { return timeIntervalSinceReferenceDate + referenceUnixTime; }

    constexpr Date addingTimeInterval(double seconds) const { return {timeIntervalSinceReferenceDate + seconds}; }
    constexpr double timeIntervalSince(Date other) const {
        return timeIntervalSinceReferenceDate - other.timeIntervalSinceReferenceDate;
    }

    friend constexpr auto operator<=>(Date, Date) = default;
};

}  // namespace orvel
