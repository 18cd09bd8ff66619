// The operations of the command on a person's feeds.
#pragma once

#include <optional>
#include <string>

#include "feeds/feed.h"
#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

/// Puts the feed behind the others, or in the place of the one with its name. Says when nothing serves it.
Outcome<Done> addFeed(const Feed& feed, const Platform& platform, Console& console);

/// Runs it once, prints what its command prints, and updates its design, which is made again if it was removed.
Outcome<Done> runFeedOnce(const std::string& name, const Platform& platform, Console& console);

Outcome<Done> pauseFeed(const std::string& name, bool isPaused, const Platform& platform, Console& console);

/// Its design stays, without a line that there is no news.
Outcome<Done> removeFeed(const std::string& name, const Platform& platform, Console& console);

}  // namespace orvel::tools
