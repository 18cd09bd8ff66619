// Shows cards on the desktop and keeps them current, to the minute, until the window system goes away or the process is
// asked to end.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "platform/host/card_source.h"
#include "platform/host/widget.h"
#include "platform/window/open_window_system.h"

namespace orvel {

/// What a program of widgets declares besides the widgets themselves.
struct ExtensionInfo {
    std::string program;  ///< the name by which the window system knows it
    /// The folder whose changes cause a request for a new timeline.
    std::function<std::string(const Platform&)> watchedFolder;
    /// Why the stored designs can't be read, in one line for the person; absent when they can.
    std::function<std::optional<std::string>(const Platform&)> trouble;
};

struct DesktopChoices {
    std::string program;   ///< the name by which the window system knows it
    std::string untitled;  ///< the window's title of a card without words
    /// One sentence at a time, for a person.
    std::function<void(const std::string&)> notice;
};

/// Returns after SIGTERM or SIGINT, or when a person closes a card's window. Fails, with one line, when there is no
/// display or when it has gone away.
Result<Done, NoDisplay> showOnDesktop(CardSource& source, const DesktopChoices& choices);

struct CardChoice {
    WidgetFamily family = WidgetFamily::systemSmall;
    CardPlace place = {};
};

/// The same for one widget, whose provider says what its card is. Trouble is shown to the person in a notification,
/// once.
Result<Done, NoDisplay> showWidgetOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                            const CardChoice& choice, std::function<void(const std::string&)> notice,
                                            const Platform& platform);

}  // namespace orvel
