// The desktop's widget host: keeps one widget on show, right within the minute, until the window system goes away or
// the process is asked to end.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/host/widget.h"
#include "platform/window/desktop_surface.h"

namespace orvel {

/// What an extension declares to the host besides its widgets.
struct ExtensionInfo {
    std::string program;  ///< the name by which the window system knows it
    /// The folder whose change is a reason to ask for a new timeline.
    std::function<std::string(const Platform&)> watchedFolder;
};

struct DesktopChoices {
    WidgetFamily family = WidgetFamily::systemSmall;
    Placement placement = {};
    /// One sentence at a time, for a person.
    std::function<void(const std::string&)> notice;
};

/// Returns when SIGTERM or SIGINT asks for it, or a person closed the card's window. Fails, with one line, when there
/// is no display or when it has gone away.
Result<Done, NoDisplay> showOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                      const DesktopChoices& choices, const Platform& platform);

}  // namespace orvel
