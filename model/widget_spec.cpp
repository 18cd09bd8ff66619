#include "model/widget_spec.h"

#include <algorithm>
#include <utility>

#include "model/widget_fields.h"
#include "platform/foundation/unicode.h"

namespace orvel {
namespace {

template <class Value>
bool equal(const Value& a, const Value& b) {
    return a == b;
}

bool equal(const std::string& a, const std::string& b) {
    return unicode::canonicallyEquivalent(a, b);
}

bool equal(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), unicode::canonicallyEquivalent);
}

template <class Value>
bool equal(const std::optional<Value>& a, const std::optional<Value>& b) {
    return a.has_value() == b.has_value() && (!a || equal(*a, *b));
}

}  // namespace

WidgetSpec::WidgetSpec(Fields fields, const Platform& platform) : kind(fields.kind) {
    if (!fields.id) fields.id = platform.identities.uuid();
    if (!fields.createdAt) fields.createdAt = platform.clock.now();
    forEachWidgetField([&](const auto& row) {
        using Row = std::remove_cvref_t<decltype(row)>;
        auto& given = row.in(fields);
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(given)>, typename Row::Value>)
            row.in(*this) = row.limited ? row.limited(std::move(given)) : std::move(given);
        else
            row.in(*this) = *std::move(given);
    });
}

bool operator==(const WidgetSpec& a, const WidgetSpec& b) {
    return std::apply([&](const auto&... rows) { return (equal(rows.in(a), rows.in(b)) && ...); },
                      widget_fields::table);
}

}  // namespace orvel
