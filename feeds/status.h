// How the feeds are doing, for other programs: the service writes it after each run into the session's runtime folder,
// which is in memory, and when it ends into "orvel/feeds.json" below the person's state folder.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "platform/foundation/platform.h"

namespace orvel {

struct FeedStatus {
    std::optional<Date> last = std::nullopt;            ///< when it last ran
    double seconds = 0;                                 ///< for how long
    std::optional<std::string> failure = std::nullopt;  ///< why that run failed
    int failures = 0;                                   ///< in a row
    std::optional<Date> news = std::nullopt;            ///< the last success, or when it was first tried
    std::optional<Date> next = std::nullopt;            ///< when it is due
};

using FeedStatuses = std::map<std::string, FeedStatus>;  ///< by the feeds' names

namespace Statuses {

/// What is written after each run.
std::filesystem::path file(const Platform& platform);

/// What was written last; empty if that can't be read.
FeedStatuses read(const Platform& platform);

enum class Until { endOfSession, nextSession };

/// A failure to write is ignored; the feeds work without it.
void write(const FeedStatuses& statuses, Until until, const Platform& platform);

/// As JSON: an object with a member for each feed.
std::string text(const FeedStatuses& statuses);
FeedStatuses fromText(const std::string& text);

}  // namespace Statuses
}  // namespace orvel
