// Writing JSON (RFC 8259): compact, members in the order they are given, numbers as the shortest text that reads back
// to the same double. "/" is written as "\/". What JSON can't hold (a number that isn't finite, a text that isn't
// UTF-8) fails the whole text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvel::json {

class Writer {
public:
    Writer& beginObject();
    Writer& endObject();
    Writer& beginArray();
    Writer& endArray();
    /// The next value is this member's.
    Writer& key(std::string_view name);

    Writer& string(std::string_view text);
    Writer& number(double number);
    Writer& integer(std::int64_t number);
    Writer& boolean(bool value);
    Writer& null();
    /// A text that is JSON already.
    Writer& raw(std::string_view json);

    /// The text; absent when something could not be written. The writer is empty afterwards.
    std::optional<std::string> finish();

private:
    void separate();
    void quote(std::string_view text);

    std::string text_;
    bool needsComma_ = false;
    bool failed_ = false;
};

}  // namespace orvel::json
