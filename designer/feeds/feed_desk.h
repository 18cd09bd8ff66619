// The feeds of a person's designs, as the page shows and changes them, while somebody else may change them as well.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "designer/feeds/feed_json.h"
#include "designer/feeds/feed_runs.h"
#include "feeds/feed.h"
#include "model/widget_spec.h"
#include "platform/events/path_watch.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

class FeedDesk {
public:
    /// `changed` is called when there is something else to show, whoever made it so.
    FeedDesk(EventLoop& loop, std::function<void()> changed, const Platform& platform);

    /// Of the design with that id, as feed_json.h has it.
    std::string json(const std::string& design) const;

    /// `operation` is "put", "run", "pause", "resume" or "remove". The first takes `json` as feed_changes.h has it, and
    /// runs a new feed at once; the others take a feed's `name`.
    Outcome<Done> change(std::string_view operation, const std::string& name, std::string json,
                         const WidgetSpec& design);

private:
    void read();
    void readStatuses();

    const Platform& platform_;
    std::function<void()> changed_;
    std::vector<Feed> feeds_;
    std::map<std::string, FeedNews> news_;
    std::string trouble_;
    FeedRuns runs_;
    PathWatch configuration_;
    PathWatch statuses_;
};

}  // namespace orvel::designer
