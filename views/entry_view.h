// The view of one timeline entry: the design's card, or an invitation to make a design.
#pragma once

#include <optional>
#include <utility>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "platform/ui/view.h"

namespace orvel {

class OrvelWidgetEntryView {
public:
    explicit OrvelWidgetEntryView(std::optional<WidgetSpec> spec) : spec_(std::move(spec)) {}

    View body(const Platform& platform = Platform::system()) const;

private:
    std::optional<WidgetSpec> spec_;
};

}  // namespace orvel
