#include "views/card_words.h"

#include <algorithm>
#include <cmath>

#include "format/countdown_math.h"
#include "model/widget_fields.h"

namespace orvel {
namespace {

std::string remainingTime(const WidgetSpec& spec, const Platform& platform) {
    const auto [value, unit] = CountdownMath::remaining(spec.targetISO8601, platform);
    return unit.empty() ? value : value + " " + unit;
}

// Hundredths rounded to the nearest integer, halves away from zero; limited to what the integer holds.
std::int64_t percent(double progress) {
    const double rounded = std::round(progress * 100);
    if (std::isnan(rounded)) return 0;
    if (rounded >= 0x1p63) return INT64_MAX;
    if (rounded < -0x1p63) return INT64_MIN;
    return static_cast<std::int64_t>(rounded);
}

std::vector<std::string> rows(const WidgetSpec& spec) {
    if (!spec.items) return {};
    const auto shown = static_cast<std::ptrdiff_t>(std::min(spec.items->size(), widget_limits::mostItems));
    return {spec.items->begin(), spec.items->begin() + shown};
}

}  // namespace

CardWords cardWords(const WidgetSpec& spec, const Platform& platform) {
    CardWords words{.title = spec.title};
    using enum WidgetField;
    const auto isShown = [&](WidgetField field) { return shows(spec.kind, field); };
    if (isShown(primary)) words.headline = spec.primary.value_or("—");
    if (isShown(targetISO8601)) words.headline = remainingTime(spec, platform);
    if (isShown(progress)) words.percent = percent(spec.progress.value_or(0));
    if (isShown(items)) words.rows = rows(spec);
    if (isShown(secondary)) words.secondary = spec.secondary;
    return words;
}

LocalizedStringKey percentKey(std::int64_t percent) {
    return LocalizedStringKey::interpolation().integer(percent).literal("%");
}

LocalizedStringKey emptyStateKey() {
    return LocalizedStringKey("Design one in Orvel");
}

}  // namespace orvel
