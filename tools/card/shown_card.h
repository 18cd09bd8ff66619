// What card a person asks for: the one route from there to the entry that the widget shows.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "platform/ui/view.h"
#include "tools/core/console.h"
#include "widget/provider.h"

namespace orvel::tools {

/// At most one of the two; without, the card that the desktop shows.
struct DesignChoice {
    std::optional<std::string> reference = {};  ///< of a stored design: an id, the beginning of one, or @2
    std::optional<std::string> file = {};       ///< of one design, or of a list whose first counts; - is standard input
};

struct CardChoices {
    DesignChoice design = {};
    WidgetFamily family = WidgetFamily::systemSmall;
};

struct ShownEntry {
    WidgetEntry entry;  ///< without a design for the empty state
    /// Why the store has no design to show, though it should have; one line.
    std::optional<std::string> complaint = {};
};

/// The entry that the widget's timeline shows now, or one of the chosen design.
Outcome<ShownEntry> shownEntry(const DesignChoice& design, const Platform& platform, Console& console);

/// That entry's view on the widget's background.
View shownView(const ShownEntry& shown, const Platform& platform);

/// Done, or the complaint as the failure of a command that has done what it could.
Outcome<Done> unlessComplaint(const std::optional<std::string>& complaint);

std::string_view name(WidgetFamily family);

}  // namespace orvel::tools
