// Watches a folder's entries or a file, whether it is created, replaced, deleted or created again. The folders and
// symbolic links on the way to it are watched as well, and the files to which links in the folder point.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/events/event_loop.h"

namespace orvel {

class PathWatch {
public:
    /// `changed` is called once for a burst of changes: when nothing has happened for 20 ms, and no later than 200 ms
    /// after the burst's beginning. Where the system has no watches left, it is called now and then, at last once a
    /// minute.
    PathWatch(EventLoop& loop, std::vector<std::filesystem::path> paths, EventLoop::Handler changed);
    ~PathWatch();

private:
    class State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
