// Finds the card that a person asks for; all commands that show one card use this.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "platform/ui/view.h"
#include "tools/core/console.h"
#include "widget/provider.h"

namespace orvel::tools {

/// At most one of the two is given; with none, it is the card that the desktop shows.
struct DesignChoice {
    std::optional<std::string> reference = {};  ///< of a stored design: an id, the beginning of one, or @2
    std::optional<std::string> file = {};       ///< of one design, or of a list whose first counts; - is standard input
};

struct CardChoices {
    DesignChoice design = {};
    WidgetFamily family = WidgetFamily::systemSmall;
};

struct ShownEntry {
    WidgetEntry entry;  ///< without a design, the card invites to make one
    /// Why the stored designs couldn't be read; one line.
    std::optional<std::string> complaint = {};
};

/// The entry that the widget's timeline shows now, or one of the chosen design.
Outcome<ShownEntry> shownEntry(const DesignChoice& design, const Platform& platform, Console& console);

/// That entry's view on the widget's background.
View shownView(const ShownEntry& shown, const Platform& platform);

/// Success, or the complaint as a failure, for a command that has done what it could.
Outcome<Done> unlessComplaint(const std::optional<std::string>& complaint);

std::string_view name(WidgetFamily family);

}  // namespace orvel::tools
