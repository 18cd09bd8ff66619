#include "model/widget_fields.h"

#include <algorithm>

namespace orvel {

std::optional<std::vector<std::string>> widget_limits::items(std::optional<std::vector<std::string>> items) {
    if (items && items->size() > mostItems) items->resize(mostItems);
    return items;
}

std::optional<double> widget_limits::progress(std::optional<double> progress) {
    if (!progress) return std::nullopt;
    const double atLeastZero = *progress >= 0 ? *progress : 0;  // not-a-number compares false
    return std::min(atLeastZero, 1.0);
}

std::string_view name(WidgetField field) {
    return withWidgetField<std::string_view>([&](const auto& row) { return row.field == field; },
                                             [](const auto& row) { return row.name; }, "");
}

}  // namespace orvel
