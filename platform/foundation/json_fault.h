// Turns the parser's error codes into sentences for people, with the position of the fault, which the parser doesn't
// always give.
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

/// Invalid UTF-8 and unclosed strings, which the parser checks first: what is wrong, and where. Absent for any other
/// fault.
std::optional<LocatedFault> locatedFault(std::string_view text, simdjson::error_code code);

}  // namespace orvel::json
