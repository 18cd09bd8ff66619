#include "bench/peers.h"

#include <nlohmann/json.hpp>
#include <simdjson.h>

#include <utility>

namespace orvel::bench {
namespace {

using Json = nlohmann::json;

bool takeText(Json& value, std::string& field) {
    if (!value.is_string()) return false;
    field = std::move(value.get_ref<std::string&>());
    return true;
}

bool takeNumber(const Json& value, double& field) {
    if (!value.is_number()) return false;
    field = value.get<double>();
    return true;
}

bool takeTexts(Json& value, std::vector<std::string>& field) {
    if (!value.is_array()) return false;
    field.reserve(value.size());
    for (Json& element : value)
        if (!takeText(element, field.emplace_back())) return false;
    return true;
}

bool takeKind(const Json& value, WidgetSpec::Kind& field) {
    if (!value.is_string()) return false;
    const auto kind = kindFromRawValue(value.get_ref<const std::string&>());
    if (kind) field = *kind;
    return kind.has_value();
}

template <class Take, class Field>
bool required(Json& object, const char* key, Take take, Field& field) {
    const auto member = object.find(key);
    return member != object.end() && take(*member, field);
}

template <class Take, class Field>
bool optional(Json& object, const char* key, Take take, std::optional<Field>& field) {
    const auto member = object.find(key);
    return member == object.end() || member->is_null() || take(*member, field.emplace());
}

bool decode(Json& object, WidgetSpec& spec) {
    return object.is_object() && required(object, "id", takeText, spec.id) &&
           required(object, "title", takeText, spec.title) && required(object, "kind", takeKind, spec.kind) &&
           required(object, "accentHex", takeText, spec.accentHex) &&
           required(object, "symbol", takeText, spec.symbol) && optional(object, "primary", takeText, spec.primary) &&
           optional(object, "secondary", takeText, spec.secondary) &&
           optional(object, "items", takeTexts, spec.items) &&
           optional(object, "progress", takeNumber, spec.progress) &&
           optional(object, "targetISO8601", takeText, spec.targetISO8601) &&
           required(object, "createdAt", takeNumber, spec.createdAt.timeIntervalSinceReferenceDate);
}

}  // namespace

std::vector<WidgetSpec> loadWithNlohmann(std::string text) {
    Json list = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    std::string().swap(text);  // no longer needed
    if (!list.is_array()) return {};
    const WidgetSpec blank(
        {.id = "", .title = "", .kind = WidgetSpec::Kind::metric, .accentHex = "", .symbol = "", .createdAt = Date{}});
    std::vector<WidgetSpec> specs;
    specs.reserve(list.size());
    for (Json& element : list)
        if (!decode(element, specs.emplace_back(blank))) return {};
    return specs;
}

struct BareParser::State {
    simdjson::dom::parser parser;
};

BareParser::BareParser() : state_(std::make_unique<State>()) {}

BareParser::~BareParser() = default;

bool BareParser::parse(std::string text) {
    const std::size_t size = text.size();
    text.reserve(size + simdjson::SIMDJSON_PADDING);
    return state_->parser.parse(text.data(), size, /*realloc_if_needed=*/false).error() == simdjson::SUCCESS;
}

}  // namespace orvel::bench
