// Turns a countdown's target date into the two short texts that its card shows. Reads the clock once.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/foundation/platform.h"

namespace orvel::CountdownMath {

/// The time left until the target as (value, unit): ("3", "days"), ("1", "hour"), ("Now", "") once it is reached, and
/// ("—", "") without a target or when it isn't a date. Whole days from one day on, else whole hours, at least 1.
///
/// A target is an RFC 3339 date-time without fractions, or a full-date (midnight UTC), or any text whose first ten
/// characters are a full-date (local midnight, the rest dropped); tried in this order.
std::pair<std::string, std::string> remaining(const std::optional<std::string>& targetISO8601,
                                              const Platform& platform = Platform::system());

}  // namespace orvel::CountdownMath
