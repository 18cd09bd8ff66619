#include "views/card_words.h"

#include <algorithm>
#include <cmath>

#include "format/countdown_math.h"
#include "views/kind_face.h"

namespace orvel {
namespace {

std::string headline(const WidgetSpec& spec, const Platform& platform) {
    if (!shows(spec.kind, WidgetField::targetISO8601)) return spec.primary.value_or("—");
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
    switch (face(spec.kind).layout) {
        case CardLayout::value: words.headline = headline(spec, platform); break;
        case CardLayout::ring: words.percent = percent(spec.progress.value_or(0)); break;
        case CardLayout::rows: words.rows = rows(spec); break;
    }
    if (shows(spec.kind, WidgetField::secondary)) words.secondary = spec.secondary;
    return words;
}

LocalizedStringKey percentKey(std::int64_t percent) {
    return LocalizedStringKey::interpolation().integer(percent).literal("%");
}

LocalizedStringKey emptyStateKey() {
    return LocalizedStringKey("Design one in Orvel");
}

}  // namespace orvel
