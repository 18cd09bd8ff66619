#include "model/widget_kind.h"

namespace orvel {

std::optional<WidgetKind> kindFromRawValue(std::string_view text) {
    for (const WidgetKind kind : allWidgetKinds)
        if (rawValue(kind) == text) return kind;
    return std::nullopt;
}

}  // namespace orvel
