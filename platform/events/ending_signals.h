// Being asked to end, as an event among others.
#pragma once

#include "platform/foundation/descriptor.h"

namespace orvel {

/// A descriptor that can be read once SIGTERM or SIGINT asks the process to end; they no longer end it by themselves.
Descriptor openEndingSignals();

}  // namespace orvel
