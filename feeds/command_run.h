// One run of a command: without a shell, in a process group of its own, for a limited time and with limited output.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

struct CommandLimits {
    std::chrono::milliseconds time;
    std::size_t bytes = 64 << 10;          ///< of each of the two streams
    std::chrono::milliseconds grace{500};  ///< from SIGTERM to SIGKILL
};

struct CommandResult {
    std::string output;                  ///< what it wrote on standard output
    std::string errors;                  ///< on standard error
    std::optional<std::string> failure;  ///< one line: why it is none, or it doesn't count
};

/// Runs it from that folder, with nothing on standard input, until the program itself ends, and then ends everything
/// that it has started and left. So it does after the time, beyond the bytes, and when this process is asked to end
/// (SIGTERM, SIGINT), which it does only then. The calling process has one thread, and no other children.
CommandResult runCommand(const std::vector<std::string>& command, const std::string& folder,
                         const CommandLimits& limits);

}  // namespace orvel
