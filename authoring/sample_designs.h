// A sample design of each kind, for the gallery and for benchmarks.
#pragma once

#include "model/widget_spec.h"

namespace orvel {

/// It has the fields that the kind shows, and no id.
WidgetSpec::Fields sampleDesign(WidgetKind kind);

}  // namespace orvel
