// The stored design that the pending one began from, kept beside the history: after a crash, too, a change by somebody
// else is told from one's own.
#pragma once

#include <optional>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// Absent when none is kept, or one of another id.
std::optional<WidgetSpec> readBase(const WidgetSpec& pending, const Platform& platform);

/// Absent forgets it. If it can't be written, the page may later ask about a change that was already taken over.
void keepBase(const std::optional<WidgetSpec>& base, const Platform& platform);

}  // namespace orvel::designer
