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
    std::optional<std::string> failure;  ///< one line: why the command failed, or why its output doesn't count
};

/// Runs it in that folder, with nothing on standard input, until the program ends, exceeds the time or the bytes, or
/// this process is asked to end (SIGTERM, SIGINT); then ends everything that the program has started. Only after that
/// does a signal end this process. The calling process must have one thread and no other children.
CommandResult runCommand(const std::vector<std::string>& command, const std::string& folder,
                         const CommandLimits& limits);

}  // namespace orvel
