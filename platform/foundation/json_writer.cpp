#include "platform/foundation/json_writer.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "platform/foundation/unicode.h"

namespace orvel::json {

void Writer::separate() {
    if (std::exchange(needsComma_, true)) text_ += ',';
}

Writer& Writer::beginObject() {
    separate();
    text_ += '{';
    needsComma_ = false;
    return *this;
}

Writer& Writer::endObject() {
    text_ += '}';
    needsComma_ = true;
    return *this;
}

Writer& Writer::beginArray() {
    separate();
    text_ += '[';
    needsComma_ = false;
    return *this;
}

Writer& Writer::endArray() {
    text_ += ']';
    needsComma_ = true;
    return *this;
}

Writer& Writer::key(std::string_view name) {
    separate();
    quote(name);
    text_ += ':';
    needsComma_ = false;
    return *this;
}

Writer& Writer::string(std::string_view text) {
    separate();
    quote(text);
    return *this;
}

Writer& Writer::number(double number) {
    separate();
    if (!std::isfinite(number)) {
        failed_ = true;
        return *this;
    }
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text_.append(digits, end);
    return *this;
}

Writer& Writer::integer(std::int64_t number) {
    separate();
    text_ += std::to_string(number);
    return *this;
}

Writer& Writer::boolean(bool value) {
    return raw(value ? "true" : "false");
}

Writer& Writer::null() {
    return raw("null");
}

Writer& Writer::raw(std::string_view json) {
    separate();
    text_ += json;
    return *this;
}

std::optional<std::string> Writer::finish() {
    needsComma_ = false;
    std::string text = std::exchange(text_, {});
    if (std::exchange(failed_, false)) return std::nullopt;
    return text;
}

void Writer::quote(std::string_view text) {
    if (!unicode::isValid(text)) failed_ = true;
    text_ += '"';
    for (const char c : text) {
        switch (c) {
            case '"': text_ += "\\\""; break;
            case '\\': text_ += "\\\\"; break;
            case '/': text_ += "\\/"; break;
            case '\b': text_ += "\\b"; break;
            case '\f': text_ += "\\f"; break;
            case '\n': text_ += "\\n"; break;
            case '\r': text_ += "\\r"; break;
            case '\t': text_ += "\\t"; break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    text_ += "\\u00";
                    text_ += c < 0x10 ? '0' : '1';
                    text_ += "0123456789abcdef"[c & 0x0F];
                } else {
                    text_ += c;
                }
        }
    }
    text_ += '"';
}

}  // namespace orvel::json
