// Work in a process of its own, so that the memory it takes goes with it, and a crash in it is only a failure.
#pragma once

#include <chrono>
#include <cstddef>
#include <utility>

#include "platform/foundation/function_ref.h"

namespace orvel {

/// One end of a connection between two processes. Both calls wait until all is done; false when the other end has gone.
class Channel {
public:
    /// Takes a connected stream socket over; a negative one is an end whose other end has gone.
    explicit Channel(int socket) : socket_(socket) {}
    Channel(Channel&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}
    Channel& operator=(Channel&& other) noexcept;
    ~Channel();

    bool send(const void* bytes, std::size_t count) const;
    bool receive(void* bytes, std::size_t count) const;

private:
    int socket_;
};

/// Starts a copy of this process, which ends when `work` returns, throws or takes longer than `most`; returns this
/// process's end of the connection to it. The calling process must have one thread, and hears of the end by SIGCHLD.
Channel startOwnProcess(FunctionRef<void(const Channel&)> work, std::chrono::seconds most);

}  // namespace orvel
