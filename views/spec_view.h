// The card: one design's face, laid out by its kind and tinted with its accent colour.
#pragma once

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "platform/ui/view.h"

namespace orvel {

class WidgetSpecView {
public:
    explicit WidgetSpecView(WidgetSpec spec) : spec_(std::move(spec)) {}

    const WidgetSpec& spec() const { return spec_; }

    /// A countdown's headline is measured from the clock at this moment.
    View body(const Platform& platform = Platform::system()) const;

private:
    WidgetSpec spec_;
};

}  // namespace orvel
