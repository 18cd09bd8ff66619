#include "views/card_words.h"

#include <algorithm>
#include <cmath>

#include "format/countdown_math.h"

namespace orvel {
namespace {

constexpr std::size_t mostRows = 5;

std::string headline(const WidgetSpec& spec, const Platform& platform) {
    if (spec.kind != WidgetSpec::Kind::countdown) return spec.primary.value_or("—");
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
    const auto shown = static_cast<std::ptrdiff_t>(std::min(spec.items->size(), mostRows));
    return {spec.items->begin(), spec.items->begin() + shown};
}

}  // namespace

CardWords cardWords(const WidgetSpec& spec, const Platform& platform) {
    CardWords words{.title = spec.title};
    switch (spec.kind) {
        case WidgetSpec::Kind::progress: words.percent = percent(spec.progress.value_or(0)); break;
        case WidgetSpec::Kind::list: words.rows = rows(spec); break;
        case WidgetSpec::Kind::metric:
        case WidgetSpec::Kind::note:
        case WidgetSpec::Kind::countdown:
            words.headline = headline(spec, platform);
            words.secondary = spec.secondary;
            break;
    }
    return words;
}

}  // namespace orvel
