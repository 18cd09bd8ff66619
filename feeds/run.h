// One run of a feed, from its command to its design.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "feeds/command_run.h"
#include "feeds/feed.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct FeedRun {
    CommandResult command = {};
    std::optional<std::string> failure = std::nullopt;  ///< one line: why there is no news
    std::chrono::duration<double> time{};
    bool isSkipped = false;  ///< another process runs this feed at the moment
};

/// Runs the command in the person's home folder and writes what it prints into the design. A feed never runs twice at
/// the same time, not even in different processes. The calling process must have one thread and no children.
FeedRun runFeed(const Feed& feed, const Platform& platform);

}  // namespace orvel
