// The feeds' service as a companion of another command.
#pragma once

#include "platform/foundation/platform.h"

namespace orvel::tools {

/// Starts it where there are feeds that nothing serves; it ends with this process, which must have one thread.
void serveFeedsBeside(const Platform& platform);

}  // namespace orvel::tools
