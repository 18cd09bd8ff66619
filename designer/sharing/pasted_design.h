// A design that a person pastes as JSON.
#pragma once

#include <string>

#include "authoring/new_design.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// From a record, or a list of one, in which id, createdAt, accentHex and symbol may be missing. The failure says where
/// in the text and which field.
Outcome<NewDesign> pastedDesign(std::string json, const Platform& platform);

}  // namespace orvel::designer
