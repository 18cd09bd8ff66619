// What loads, but won't show as it was meant.
#pragma once

#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/symbols/symbols.h"

namespace orvel::tools {

/// One line each, without a full stop. Only what the design's kind shows is looked at.
std::vector<std::string> warnings(const WidgetSpec& spec, const Symbols& symbols);

/// The same for a whole list, each line beginning with the design's position, and ids that occur again.
std::vector<std::string> warnings(const std::vector<WidgetSpec>& specs, const Symbols& symbols);

}  // namespace orvel::tools
