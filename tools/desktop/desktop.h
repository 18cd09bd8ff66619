// The cards on the desktop, and the monitors that they can be on.
#pragma once

#include <optional>
#include <string>

#include "desktop/place.h"
#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// What a person chooses about a place; the rest stays as it is, or has its default.
struct PlaceChoices {
    std::string reference = {};  ///< names a design; empty when none was named
    std::optional<WidgetFamily> family = {};
    std::optional<Anchor> anchor = {};
    std::optional<Margin> margin = {};
    std::optional<OutputChoice> output = {};
    std::optional<Layer> layer = {};
    std::optional<std::string> click = {};  ///< "none" lets clicks through

    bool withoutFeeds = false;  ///< doesn't count as a choice of a place

    bool isEmpty() const;
    void applyTo(Place& place) const;
};

/// Shows the placed cards, unless another process shows them on this desktop; with a design or any choice, shows that
/// card alone. Runs until the process is asked to end, or until the window system goes away, which is a failure.
Outcome<Done> desktop(const PlaceChoices& choices, const Platform& platform, Console& console);

enum class OutputsForm { names, json };

/// Prints the monitors, one on each line.
Outcome<Done> outputs(OutputsForm form, Console& console);

}  // namespace orvel::tools
