// Runs work in a child process: its memory is freed when it ends, and a crash in it is only a failure.
#pragma once

#include <chrono>
#include <cstddef>
#include <utility>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/function_ref.h"

namespace orvel {

/// One end of a connection between two processes. Both calls block until all bytes are transferred, and return false
/// when the other end is closed.
class Channel {
public:
    /// Takes ownership of a connected stream socket. Without one, both calls return false.
    explicit Channel(Descriptor socket) : socket_(std::move(socket)) {}

    bool send(const void* bytes, std::size_t count) const;
    bool receive(void* bytes, std::size_t count) const;

private:
    Descriptor socket_;
};

/// Forks a child process that ends when `work` returns, throws or takes longer than `most`. Returns the parent's end of
/// the connection to it. The calling process must have one thread, and receives SIGCHLD when the child ends.
Channel forkChild(FunctionRef<void(const Channel&)> work, std::chrono::seconds most);

}  // namespace orvel
