// A design's feeds, as JSON for a page:
//   {"served":true,"trouble":"","feeds":[{"name":"disk","command":"df -h /","every":"5m","timeout":"10s",
//     "isPaused":false,"onBattery":"run","whenOnline":false,"failures":0,"news":"2026-…","next":"2026-…",
//     "results":[{"date":"2026-…","seconds":0.03,"failure":"…"}],
//     "run":{"isRunning":false,"hasFailed":false,"said":"…"}}],
//    "templates":[{"name":"disk","arguments":"[FOLDER]","needs":"","kind":"progress","every":"5m",…}]}
// Dates are ISO 8601's; those that aren't known, and "failure" after a success, are left out. The last result comes
// first. "run" is there when the page asked for one.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "designer/feeds/feed_runs.h"
#include "feeds/feed.h"
#include "feeds/status.h"

namespace orvel::designer {

/// How a feed is doing, and how its last runs went: the newest first, each with its date, length and failure.
struct FeedNews {
    FeedStatus now = {};
    std::vector<FeedStatus> results = {};

    /// What the feeds' service tells now. It may tell of a run before it knows the result.
    void take(const FeedStatus& status);
};

struct FeedsToShow {
    std::vector<Feed> feeds = {};               ///< the design's
    std::map<std::string, FeedNews> news = {};  ///< by the feeds' names
    bool isServed = false;                      ///< whether something runs them when they are due
    std::string trouble = {};                   ///< with the feeds' file
};

std::string feedsJson(const FeedsToShow& shown, const FeedRuns& runs);

}  // namespace orvel::designer
