// What loads, but won't show as it was meant.
#pragma once

#include <string>
#include <vector>

#include "authoring/warning.h"
#include "model/widget_spec.h"
#include "platform/symbols/symbols.h"

namespace orvel {

struct DesignWarning {
    std::size_t index;  ///< of the design in its list, from 0
    Warning warning;
};

/// What the design's kind doesn't show though it is given, lacks though it shows it, and can't show as it is.
std::vector<Warning> warnings(const WidgetSpec& spec, const Symbols& symbols);

/// The same for each design of a list, and ids that occur again.
std::vector<DesignWarning> warnings(const std::vector<WidgetSpec>& specs, const Symbols& symbols);

/// Members that designs don't have, of a record as JSON or of a list of them; each name once, at the first design that
/// has it. None for a text that isn't JSON.
std::vector<DesignWarning> unknownMembers(std::string json);

}  // namespace orvel
