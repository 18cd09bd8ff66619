// Makes a new design from the fields that a person or a script gives.
#pragma once

#include <string>
#include <vector>

#include "authoring/warning.h"
#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct NewDesign {
    WidgetSpec spec;
    std::vector<Warning> losses;  ///< what the record's constructor did not keep, and members that no design has
};

NewDesign makeDesign(WidgetSpec::Fields fields, const Platform& platform);

/// From a record as JSON in which id, createdAt, accentHex and symbol may be missing. The failure says where in the
/// text: "2:14: …".
Outcome<NewDesign> readDesign(std::string json, const Platform& platform);

}  // namespace orvel
