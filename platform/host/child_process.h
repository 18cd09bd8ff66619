// Work in a child process, so that the memory it takes goes with it, and a crash in it is only a failure.
#pragma once

#include <chrono>
#include <cstddef>
#include <utility>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/function_ref.h"

namespace orvel {

/// One end of a connection between two processes. Both calls wait until all is done; false when the other end has gone.
class Channel {
public:
    /// Takes a connected stream socket over; none is an end whose other end has gone.
    explicit Channel(Descriptor socket) : socket_(std::move(socket)) {}

    bool send(const void* bytes, std::size_t count) const;
    bool receive(void* bytes, std::size_t count) const;

private:
    Descriptor socket_;
};

/// Forks a child that ends when `work` returns, throws or takes longer than `most`; returns the parent's end of the
/// connection to it. The calling process must have one thread, and hears of the end by SIGCHLD.
Channel forkChild(FunctionRef<void(const Channel&)> work, std::chrono::seconds most);

}  // namespace orvel
