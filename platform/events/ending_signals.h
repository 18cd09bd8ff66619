// Termination signals as events of the loop.
#pragma once

#include "platform/foundation/descriptor.h"

namespace orvel {

/// A descriptor that becomes readable when SIGTERM or SIGINT arrives; from then on they no longer end the process.
Descriptor openEndingSignals();

}  // namespace orvel
