// Designs to JSON and back: one record as an object, a list of records as an array. Member names are the field names;
// members of other names are ignored, and of a repeated member the first counts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/result.h"
#include "platform/foundation/text_position.h"

namespace orvel {

namespace json {
class Value;
}

struct DecodingFailure {
    enum class Reason {
        malformed,      ///< not JSON
        keyNotFound,    ///< a required member is missing
        valueNotFound,  ///< null where a value is required
        typeMismatch,   ///< another JSON type than the field's
        unknownKind,    ///< a "kind" that isn't one of the kinds
    };
    Reason reason;
    std::string key;                   ///< the member; empty when the record or the list itself is at fault
    std::optional<std::size_t> index;  ///< the element of a list, from 0
    TextPosition position;             ///< where in the text
    std::string detail;                ///< what is wrong with a malformed text, or what was found instead

    /// One line without a full stop, and without the position; elements are counted from 1:
    /// design @3: "createdAt" is missing
    std::string message() const;
};

namespace WidgetSpecJSON {

/// One record from an object; fields exactly as read, without the constructor's defaults and limits.
Result<WidgetSpec, DecodingFailure> decode(std::string text);

/// The constructor's arguments from an object in which only "title" and "kind" are required; the constructor has
/// defaults for the rest.
Result<WidgetSpec::Fields, DecodingFailure> decodeFields(std::string text);

/// Every record of an array, in order; one bad element fails the whole list.
Result<std::vector<WidgetSpec>, DecodingFailure> decodeList(std::string text);

/// One record that is part of a larger text; absent when it isn't a record, or when the syntax is bad.
std::optional<WidgetSpec> read(json::Value& value);

/// Compact, members in field order, absent fields left out. Absent when a `progress` is not finite or a text is not
/// valid UTF-8.
std::optional<std::string> encode(const WidgetSpec& spec);
std::optional<std::string> encodeList(const std::vector<WidgetSpec>& specs);

/// Appends one record to a larger text.
void write(json::Writer& writer, const WidgetSpec& spec);

}  // namespace WidgetSpecJSON
}  // namespace orvel
