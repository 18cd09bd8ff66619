#include "designer/sharing/pasted_design.h"

#include "platform/foundation/json_reader.h"

namespace orvel::designer {
namespace {

// The number of elements; absent when it is no list.
std::optional<std::size_t> listLength(const std::string& json) {
    std::optional<std::size_t> length;
    const auto failure = json::read(json, [&](json::Value& value) {
        if (value.kind() != json::Kind::array) return true;
        length = 0;
        return value.elements([&](json::Value&) { return ++*length, true; });
    });
    return failure ? std::nullopt : length;
}

}  // namespace

Outcome<NewDesign> pastedDesign(std::string json, const Platform& platform) {
    const auto length = listLength(json);
    if (length && *length != 1)
        return Failure{"a list of " + std::to_string(*length) + " designs; one is wanted", Failure::Cause::request,
                       "list"};
    if (length) {
        // What is left is told at the positions of the whole text.
        json[json.find('[')] = ' ';
        json[json.rfind(']')] = ' ';
    }
    return readDesign(std::move(json), platform);
}

}  // namespace orvel::designer
