// The feeds that a person set up, kept as "orvel/feeds.json" in the person's configuration folder (XDG Base Directory),
// as safely as the store: replaced whole, and changed under the folder's lock.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "feeds/feed.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

std::filesystem::path feedsFile(const Platform& platform);

/// A missing file has none. One that can't be read, or isn't understood, is a failure that says where and why.
Outcome<std::vector<Feed>> readFeeds(const Platform& platform);

/// The only feed of that name. The failure names one that is near.
Outcome<Feed> findFeed(const std::vector<Feed>& feeds, const std::string& name);

/// Changes them in one step. A file that isn't understood is kept beside, and the change starts from none; the result
/// then says so in one line. A failed `change` changes nothing, and one that changes nothing writes nothing.
Outcome<std::optional<std::string>> changeFeeds(const std::function<Outcome<Done>(std::vector<Feed>&)>& change,
                                                const Platform& platform);

}  // namespace orvel
