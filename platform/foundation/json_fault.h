// What the parser finds wrong with a text, for people: it knows codes, and of some faults no place.
// Private to this folder.
#pragma once

#include <simdjson.h>

#include <optional>
#include <string>
#include <string_view>

namespace orvel::json {

/// One line without a full stop.
std::string faultInWords(simdjson::error_code code);

struct LocatedFault {
    std::string reason;
    std::size_t offset;
};

/// Of what is wrong with bytes and quotation marks, which is judged before all else: what it is, and where. Absent for
/// any other fault.
std::optional<LocatedFault> locatedFault(std::string_view text, simdjson::error_code code);

}  // namespace orvel::json
