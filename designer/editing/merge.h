// A design that is changed here while somebody else changes it in the store.
#pragma once

#include <optional>

#include "model/widget_spec.h"

namespace orvel::designer {

/// `mine` and `theirs` both began as `base`. Each field as whoever changed it left it; absent when both changed one,
/// and not to the same value.
std::optional<WidgetSpec> merged(const WidgetSpec& base, const WidgetSpec& mine, const WidgetSpec& theirs);

}  // namespace orvel::designer
