// Names for the fields of a design, in the order in which they are stored. widget_fields.h says what each one is.
#pragma once

namespace orvel {

enum class WidgetField {
    id,
    title,
    kind,
    accentHex,
    symbol,
    primary,
    secondary,
    items,
    progress,
    targetISO8601,
    createdAt,
};

}  // namespace orvel
