// Finds the stored design that a person names: by its id, by a beginning of it (letters in any case) that no other id
// has, or by a position such as @2.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"

namespace orvel {

/// The index of the only design that has that whole id; absent when none has.
Outcome<std::optional<std::size_t>> findWithId(const std::vector<WidgetSpec>& specs, const std::string& id);

/// The index of the only design that is meant.
Outcome<std::size_t> findOne(const std::vector<WidgetSpec>& specs, const std::string& reference);

}  // namespace orvel
