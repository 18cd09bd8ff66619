#include "designer/body.h"

#include "platform/foundation/json_reader.h"

namespace orvel::designer {
namespace {

template <class Value, class Read>
bool assignIf(const Read& read, Value& value) {
    if (read) value = Value(*read);
    return read.has_value();
}

bool readCount(json::Value& value, std::uint64_t& count) {
    const auto number = value.number();
    if (number && *number >= 0 && *number < 1e15) count = static_cast<std::uint64_t>(*number);
    return number.has_value();
}

bool readField(std::string_view name, json::Value& value, std::vector<TypedField>& fields) {
    TypedField field{std::string(name), {}};
    const auto add = [&](json::Value& text) {
        const auto read = text.string();
        if (read) field.values.emplace_back(*read);
        return read.has_value();
    };
    const bool isRead =
        value.kind() == json::Kind::null || (value.kind() == json::Kind::array ? value.elements(add) : add(value));
    fields.push_back(std::move(field));
    return isRead;
}

}  // namespace

std::optional<Body> readBody(std::string text) {
    Body body;
    bool isObject = false;
    const auto readMember = [&](std::string_view name, json::Value& value) {
        if (name == "revision") return readCount(value, body.revision);
        if (name == "to") {
            std::uint64_t to = 0;
            const bool isRead = readCount(value, to);
            body.to = to;
            return isRead;
        }
        if (name == "id") return assignIf(value.string(), body.id);
        if (name == "text") return assignIf(value.string(), body.text);
        if (name == "discards") return assignIf(value.boolean(), body.discards);
        if (name == "inFront") return assignIf(value.boolean(), body.inFront);
        if (name != "fields") return true;
        return value.members(
            [&](std::string_view field, json::Value& typed) { return readField(field, typed, body.fields); });
    };
    const auto failure = json::read(std::move(text), [&](json::Value& value) {
        isObject = value.kind() == json::Kind::object && value.members(readMember);
        return isObject;
    });
    if (failure || !isObject) return std::nullopt;
    return body;
}

}  // namespace orvel::designer
