// Reads JSON (RFC 8259) in one pass over its bytes, without a tree in memory. The whole text is checked, including
// members that the caller doesn't read. Numbers of any length are read and correctly rounded; a number that the caller
// reads and that lies beyond the range of a double makes the text invalid. A leading UTF-8 byte-order mark is skipped.
// Nesting is limited to 512 levels. A lack of memory throws std::bad_alloc and says nothing about the text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/function_ref.h"
#include "platform/foundation/text_position.h"

namespace orvel::json {

enum class Kind { null, boolean, number, string, array, object };

/// As in a sentence: "null", "a boolean", "a number".
std::string_view name(Kind kind);

/// Where and why a text is not JSON. For an unclosed string, the position is where it begins.
struct SyntaxFailure {
    std::string reason;  ///< without a full stop
    TextPosition position;
};

struct Pass;

/// One value, valid only inside the callback that it is passed to, and readable at most once. A value that isn't read
/// is checked and skipped. An operation that doesn't suit the kind, or meets bad syntax, yields nothing.
class Value {
public:
    Kind kind() const { return kind_; }

    /// Bytes from the start of the text to this value.
    std::size_t offset() const { return offset_; }

    /// Where in the text it begins, without counting a byte-order mark as a column. Reads the text up to there.
    TextPosition position() const;

    std::optional<double> number();
    std::optional<bool> boolean();
    /// The unescaped text; the view lasts as long as the callback of the whole document.
    std::optional<std::string_view> string();

    /// Visits every element; false when `visit` returned false or the syntax is bad. Both end the whole pass.
    bool elements(FunctionRef<bool(Value&)> visit);
    /// Visits every member in file order, repeated names included; otherwise like `elements`.
    bool members(FunctionRef<bool(std::string_view name, Value&)> visit);

private:
    friend struct Pass;
    Value(void* source, Pass& pass, Kind kind, std::size_t offset)
        : source_(source), pass_(&pass), kind_(kind), offset_(offset) {}

    void* source_;
    Pass* pass_;
    Kind kind_;
    std::size_t offset_;
    bool taken_ = false;
};

/// Passes the document's one value to `visit`. Absent when the text is valid JSON, or when `visit` (or a visitor below
/// it) returned false before anything wrong was met; the visitor then knows the reason.
std::optional<SyntaxFailure> read(std::string text, FunctionRef<bool(Value&)> visit);

}  // namespace orvel::json
