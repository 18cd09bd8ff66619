// Feeds from the templates that come along.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "feeds/feed.h"
#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct NewFeed {
    std::string source = {};                    ///< the template; empty: list them all
    std::vector<std::string> arguments = {};    ///< for its script
    std::optional<Every> every = std::nullopt;  ///< instead of the template's
    Feed feed = {};                             ///< what is said beside; its name is the template's if empty
};

/// Adds a feed that runs the template's script, and runs it once, so that there is a design.
Outcome<Done> newFeed(const NewFeed& wanted, const Platform& platform, Console& console);

}  // namespace orvel::tools
