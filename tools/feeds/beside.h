// The feeds' service as a companion of another command.
#pragma once

#include "platform/foundation/platform.h"

namespace orvel::tools {

class FeedsBeside {
public:
    explicit FeedsBeside(const Platform& platform) : platform_(platform) {}

    /// Starts it where there are feeds that nothing serves, unless it was started before. It ends with this process,
    /// which must have one thread.
    void serve();

private:
    const Platform& platform_;
    bool isStarted_ = false;
};

}  // namespace orvel::tools
