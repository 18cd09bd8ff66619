// Work in a process of its own, so that the memory it takes goes with it, and a crash in it is only a failure.
#pragma once

#include <chrono>

#include "platform/foundation/function_ref.h"

namespace orvel {

/// Runs `work` in a copy of this process and waits for its answer; what it leaves in shared memory stays. False also
/// when it crashed, or took longer than `most` and was ended. The calling process must have one thread.
bool inOwnProcess(FunctionRef<bool()> work, std::chrono::seconds most);

}  // namespace orvel
