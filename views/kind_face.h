// What each kind of design looks like, in one table: how its card is laid out, and which fields that shows.
#pragma once

#include <algorithm>
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

KindFace face(WidgetKind kind);

inline bool shows(WidgetKind kind, WidgetField field) {
    const auto fields = face(kind).shows;
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

}  // namespace orvel
