// What each kind of design looks like, in one table: how its card is laid out, and which fields that shows.
#pragma once

#include <algorithm>
#include <array>
#include <span>

#include "model/widget_fields.h"

namespace orvel {

enum class CardLayout {
    value,  ///< a large headline over the title
    ring,   ///< a percentage within a ring
    rows,   ///< a short list below the title
};

struct KindFace {
    CardLayout layout;
    std::span<const WidgetField> shows;  ///< lasts as long as the process
};

namespace kind_faces {

using enum WidgetField;

inline constexpr std::array value{accentHex, symbol, primary, title, secondary};
inline constexpr std::array remainingTime{accentHex, symbol, targetISO8601, title, secondary};
inline constexpr std::array ring{accentHex, symbol, progress, title};
inline constexpr std::array rows{accentHex, title, items};

}  // namespace kind_faces

constexpr KindFace face(WidgetKind kind) {
    switch (kind) {
        case WidgetKind::metric: return {CardLayout::value, kind_faces::value};
        case WidgetKind::progress: return {CardLayout::ring, kind_faces::ring};
        case WidgetKind::list: return {CardLayout::rows, kind_faces::rows};
        case WidgetKind::note: return {CardLayout::value, kind_faces::value};
        case WidgetKind::countdown: return {CardLayout::value, kind_faces::remainingTime};
    }
    return {CardLayout::value, kind_faces::value};
}

constexpr bool shows(WidgetKind kind, WidgetField field) {
    const auto fields = face(kind).shows;
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

/// Of the fields that it shows, the one that a number or text from elsewhere is about.
constexpr WidgetField mainField(WidgetKind kind) {
    using Field = WidgetField;
    for (const Field field : {Field::primary, Field::progress, Field::items, Field::targetISO8601})
        if (shows(kind, field)) return field;
    return Field::title;
}

}  // namespace orvel
