// A design of each kind as an example of what the kind is for: what the gallery shows, and benchmarks draw.
#pragma once

#include "model/widget_spec.h"

namespace orvel {

/// With the fields that the kind shows; the id is left out.
WidgetSpec::Fields sampleDesign(WidgetKind kind);

}  // namespace orvel
