#include "model/widget_spec.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/unicode.h"

namespace orvel {
namespace {

constexpr std::size_t mostItems = 5;

std::optional<std::vector<std::string>> shortened(std::optional<std::vector<std::string>> items) {
    if (items && items->size() > mostItems) items->resize(mostItems);
    return items;
}

std::optional<double> limited(std::optional<double> progress) {
    if (!progress) return std::nullopt;
    const double atLeastZero = *progress >= 0 ? *progress : 0;  // not-a-number compares false
    return std::min(atLeastZero, 1.0);
}

bool equalTexts(const std::optional<std::string>& a, const std::optional<std::string>& b) {
    return a.has_value() == b.has_value() && (!a || unicode::canonicallyEquivalent(*a, *b));
}

bool equalLists(const std::optional<std::vector<std::string>>& a, const std::optional<std::vector<std::string>>& b) {
    return a.has_value() == b.has_value() &&
           (!a || std::equal(a->begin(), a->end(), b->begin(), b->end(), unicode::canonicallyEquivalent));
}

}  // namespace

WidgetSpec::WidgetSpec(Fields fields, const Platform& platform)
    : id(fields.id ? std::move(*fields.id) : platform.identities.uuid()),
      title(std::move(fields.title)),
      kind(fields.kind),
      accentHex(std::move(fields.accentHex)),
      symbol(std::move(fields.symbol)),
      primary(std::move(fields.primary)),
      secondary(std::move(fields.secondary)),
      items(shortened(std::move(fields.items))),
      progress(limited(fields.progress)),
      targetISO8601(std::move(fields.targetISO8601)),
      createdAt(fields.createdAt ? *fields.createdAt : platform.clock.now()) {}

std::string_view rawValue(WidgetSpec::Kind kind) {
    switch (kind) {
        case WidgetSpec::Kind::metric: return "metric";
        case WidgetSpec::Kind::progress: return "progress";
        case WidgetSpec::Kind::list: return "list";
        case WidgetSpec::Kind::note: return "note";
        case WidgetSpec::Kind::countdown: return "countdown";
    }
    return {};
}

std::optional<WidgetSpec::Kind> kindFromRawValue(std::string_view text) {
    for (const auto kind : WidgetSpec::allCases)
        if (rawValue(kind) == text) return kind;
    return std::nullopt;
}

bool operator==(const WidgetSpec& a, const WidgetSpec& b) {
    using unicode::canonicallyEquivalent;
    return canonicallyEquivalent(a.id, b.id) && canonicallyEquivalent(a.title, b.title) && a.kind == b.kind &&
           canonicallyEquivalent(a.accentHex, b.accentHex) && canonicallyEquivalent(a.symbol, b.symbol) &&
           equalTexts(a.primary, b.primary) && equalTexts(a.secondary, b.secondary) && equalLists(a.items, b.items) &&
           a.progress == b.progress && equalTexts(a.targetISO8601, b.targetISO8601) && a.createdAt == b.createdAt;
}

}  // namespace orvel
