// Where a design stands on a person's desktop.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/widget_spec.h"
#include "platform/host/arrangement.h"
#include "platform/host/timeline.h"

namespace orvel {

/// A position counts from 1: the design at the front, whichever that is.
struct DesignPosition {
    std::size_t number = 1;
    friend bool operator==(const DesignPosition&, const DesignPosition&) = default;
};
using PlacedDesign = std::variant<std::string, DesignPosition>;  ///< an id, or a position

struct Place {
    PlacedDesign design = DesignPosition{};
    WidgetFamily family = WidgetFamily::systemSmall;
    CardPlace place = {.output = {.which = OutputChoice::Which::primary}};
    /// "design" opens the designer; else an address to open, or a command to run. Absent: clicks go through the card.
    std::optional<std::string> click = {};
    friend bool operator==(const Place&, const Place&) = default;
};

/// The stored design that stands there now, if there is one.
const WidgetSpec* designAt(const Place& place, const std::vector<WidgetSpec>& specs);

/// An id, or a position such as "@1".
std::string text(const PlacedDesign& design);

}  // namespace orvel
