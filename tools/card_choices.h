// What card a person asks for, and the scene that the host would show for it.
#pragma once

#include <optional>
#include <string>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "platform/host/card.h"
#include "tools/console.h"

namespace orvel::tools {

struct CardChoices {
    std::optional<std::string> design =
        {};  ///< a file of one design, or of a list whose first counts; absent: the store
    WidgetFamily family = WidgetFamily::systemSmall;
};

/// The design of the entry that the widget's timeline shows now, or the given one; absent for the empty state.
Outcome<std::optional<WidgetSpec>> shownDesign(const std::optional<std::string>& design, const Platform& platform,
                                               Console& console);

/// The view of the entry that the widget's timeline shows now, or of the given design.
Outcome<View> cardView(const CardChoices& choices, const Platform& platform, Console& console);

std::string_view name(WidgetFamily family);

}  // namespace orvel::tools
