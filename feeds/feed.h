// A feed: a command that keeps a design current.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "feeds/schedule.h"

namespace orvel {

struct Feed {
    static constexpr std::chrono::seconds usualTimeout{10};
    static constexpr std::chrono::seconds longestTimeout{3600};

    std::string name;  ///< also a file's name
    Every every = std::chrono::seconds{60};
    std::chrono::seconds timeout = usualTimeout;
    std::string design;                   ///< the id; made at the first success
    std::vector<std::string> command;     ///< the program and its arguments; no shell reads them
    std::vector<std::string> first = {};  ///< fields of a new design besides the output: "kind=progress", "title=Disk"
    bool isPaused = false;
    bool pausesOnBattery = false;
    bool whenOnline = false;  ///< waits for a route to other machines
    bool isMade = false;      ///< the design was there; once it is removed, it isn't made again

    friend bool operator==(const Feed&, const Feed&) = default;
};

/// Why the text can't be the name of a feed; empty when it can.
std::string wrongFeedName(std::string_view name);

}  // namespace orvel
