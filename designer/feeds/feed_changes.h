// Changes of a person's feeds that a page asks for. A failure's `field` names what of the form is at fault: "source",
// "command", "arguments", "every" or "timeout".
#pragma once

#include <string>

#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// `json` is an object as a page's form has it, with texts as a person types them:
///   {"name":"disk","source":"","command":"df -h /","every":"5m","timeout":"10s","onBattery":"pause","whenOnline":true}
/// Without a name it makes a feed for that stored design, from the template `source` with its "arguments", or from the
/// command. With one it changes that feed. The result is the feed's name.
Outcome<std::string> putFeed(std::string json, const WidgetSpec& design, const Platform& platform);

enum class Pause { off, on };
Outcome<Done> pauseFeed(const std::string& name, Pause pause, const Platform& platform);

/// The design stays, and says again what it said before there was no news.
Outcome<Done> removeFeed(const std::string& name, const Platform& platform);

}  // namespace orvel::designer
