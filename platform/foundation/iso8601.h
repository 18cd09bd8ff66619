// Texts of RFC 3339 (the Internet profile of ISO 8601) to points in time and back. Strict: the whole text, upper-case
// T and Z, every field with its full number of digits, and only days that their month has.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/date.h"

namespace orvel::iso8601 {

enum class Fraction { refused, allowed };

/// RFC 3339 date-time: 2025-12-31T18:30:00Z, 2025-12-31T18:30:00+02:00, and where a fraction of a second is allowed
/// 2025-12-31T18:30:00.25Z. A leap second (second 60) is the first second of the next minute, as Unix time counts.
std::optional<Date> dateTime(std::string_view text, Fraction fraction = Fraction::refused);

/// RFC 3339 full-date: 2025-12-31.
std::optional<std::chrono::year_month_day> fullDate(std::string_view text);

/// RFC 3339's full-date and partial-time without a zone, a blank or T between them, seconds optional:
/// 2025-12-31 18:30, 2025-12-31T18:30:00.
std::optional<std::chrono::local_seconds> localDateTime(std::string_view text);

/// The instant, cut to whole seconds, with that zone offset (whole minutes): 2025-12-31T18:30:00+02:00, or with Z for
/// none. For years 0 to 9999.
std::string format(Date date, std::chrono::minutes offset = {});

/// What localDateTime reads, with a T: 2025-12-31T18:30:00.
std::string format(std::chrono::local_seconds time);

}  // namespace orvel::iso8601
