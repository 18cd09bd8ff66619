#include "platform/host/child_process.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace orvel {
namespace {

// Repeats the call, a send or recv, until all bytes are transferred; false when the other end is closed.
template <class Byte, class Call>
bool repeatUntilDone(Byte* bytes, std::size_t count, Call call) {
    while (count > 0) {
        const ssize_t done = call(bytes, count);
        if (done < 0 && errno == EINTR) continue;
        if (done <= 0) return false;
        bytes += done;
        count -= static_cast<std::size_t>(done);
    }
    return true;
}

}  // namespace

bool Channel::send(const void* bytes, std::size_t count) const {
    return repeatUntilDone(static_cast<const char*>(bytes), count, [this](const char* from, std::size_t rest) {
        return ::send(socket_.get(), from, rest, MSG_NOSIGNAL);
    });
}

bool Channel::receive(void* bytes, std::size_t count) const {
    return repeatUntilDone(static_cast<char*>(bytes), count,
                           [this](char* to, std::size_t rest) { return ::recv(socket_.get(), to, rest, 0); });
}

Channel forkChild(FunctionRef<void(const Channel&)> work, std::chrono::seconds most) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0) return Channel(Descriptor());
    Descriptor parentsEnd(ends[0]);
    Descriptor childsEnd(ends[1]);
    const pid_t child = ::fork();
    if (child < 0) return Channel(Descriptor());
    if (child == 0) {
        parentsEnd.close();  // otherwise the child's own copy would hide that the parent has ended
        ::signal(SIGALRM, SIG_DFL);
        ::alarm(static_cast<unsigned>(most.count()));
        try {
            work(Channel(std::move(childsEnd)));
        } catch (...) {  // out of memory, say
        }
        ::_exit(0);
    }
    return Channel(std::move(parentsEnd));
}

}  // namespace orvel
