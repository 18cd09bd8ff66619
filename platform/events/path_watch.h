// Watches what a path leads to, however it changes: a folder's entries, or a file; made, replaced, deleted and made
// again; also the folders and symbolic links on the way, and the files that links in the folder point to.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/events/event_loop.h"

namespace orvel {

class PathWatch {
public:
    /// `changed` is called once for a burst of changes: when nothing has happened for 20 ms, and no later than 200 ms
    /// after the burst's beginning.
    PathWatch(EventLoop& loop, std::vector<std::filesystem::path> paths, EventLoop::Handler changed);
    ~PathWatch();

private:
    class State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
