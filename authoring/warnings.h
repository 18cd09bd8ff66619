// Finds what is valid in a design but won't show as meant.
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

/// Fields that are given although the kind doesn't show them, that are missing although it does, and whose values can't
/// be shown as they are.
std::vector<Warning> warnings(const WidgetSpec& spec, const Symbols& symbols);

/// The same for each design of a list, and ids that occur again.
std::vector<DesignWarning> warnings(const std::vector<WidgetSpec>& specs, const Symbols& symbols);

/// Unknown members in a record as JSON, or in a list of records: each name once, at the first design that has it. None
/// for a text that isn't JSON.
std::vector<DesignWarning> unknownMembers(std::string json);

}  // namespace orvel
