// When a feed is due: arithmetic on dates, without a clock of its own.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/foundation/date.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/time_zone.h"

namespace orvel {

/// A time of day that the local clocks show once a day.
struct TimeOfDay {
    std::chrono::minutes sinceMidnight;

    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

/// How often: an interval from a second to 366 days, or daily.
using Every = std::variant<std::chrono::seconds, TimeOfDay>;

/// "90", "60s", "5m", "2h", "1d" as a time of at least a second and at most `most`.
std::optional<std::chrono::seconds> durationText(std::string_view text, std::chrono::seconds most);

/// A duration, or a time of day such as "07:30".
Outcome<Every> everyText(const std::string& text);

/// As text that the functions above read: "5m", "07:30".
std::string text(std::chrono::seconds duration);
std::string text(const Every& every);

namespace Schedule {

/// When a feed is due whose last run was planned for `last` and that has failed so often in a row. An interval grows
/// with its failures, up to ten times; a time of day stays. A last run in the future means that the clock was set back
/// since: then the feed is due now.
Date due(const Every& every, Date last, int failures, Date now, const TimeZone& zone);

/// What a run at `now` counts as planned for, so that intervals neither drift nor make up for what the machine slept
/// through: the last of the moments that lie whole intervals after `due`.
Date planned(const Every& every, Date due, Date now);

}  // namespace Schedule
}  // namespace orvel
