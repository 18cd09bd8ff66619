// The desktop's widget host: keeps cards on show, right within the minute, until the window system goes away or the
// process is asked to end.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "platform/host/card_source.h"
#include "platform/host/widget.h"
#include "platform/window/open_window_system.h"

namespace orvel {

/// What an extension declares to the host besides its widgets.
struct ExtensionInfo {
    std::string program;  ///< the name by which the window system knows it
    /// The folder whose change is a reason to ask for a new timeline.
    std::function<std::string(const Platform&)> watchedFolder;
    /// Why the provider can't say what is stored, in one line for the person; absent when it can.
    std::function<std::optional<std::string>(const Platform&)> trouble;
};

struct DesktopChoices {
    std::string program;   ///< the name by which the window system knows it
    std::string untitled;  ///< what a card without words is called
    /// One sentence at a time, for a person.
    std::function<void(const std::string&)> notice;
};

/// Returns when SIGTERM or SIGINT asks for it, or a person closed a card's window. Fails, with one line, when there is
/// no display or when it has gone away.
Result<Done, NoDisplay> showOnDesktop(CardSource& source, const DesktopChoices& choices);

struct CardChoice {
    WidgetFamily family = WidgetFamily::systemSmall;
    CardPlace place = {};
};

/// The same for one widget, whose provider says what its card is. Of trouble the person is told by a notification,
/// once.
Result<Done, NoDisplay> showWidgetOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                            const CardChoice& choice, std::function<void(const std::string&)> notice,
                                            const Platform& platform);

}  // namespace orvel
