// Feeds to JSON and back: an array of objects such as
//   {"name":"disk","every":"60s","timeout":"10s","design":"disk","command":["df","--output=pcent","/"]}
// of which "name", "every" and "command" must be there. "first" is a list of assignments such as "title=Disk";
// "paused", "whenOnline" and "made" are true or false, "onBattery" is "run" or "pause". Other members are ignored.
#pragma once

#include <string>
#include <vector>

#include "authoring/list_file.h"
#include "feeds/feed.h"

namespace orvel::FeedsJSON {

/// Two feeds of one name are a fault.
Result<std::vector<Feed>, TextFault> decode(std::string text);

/// A feed on each line, for people who read it. Absent when a text isn't UTF-8.
std::optional<std::string> encode(const std::vector<Feed>& feeds);

}  // namespace orvel::FeedsJSON
