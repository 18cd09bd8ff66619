#include "platform/host/own_process.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace orvel {
namespace {

// Repeats the call, as of send or recv, for what it has left.
template <class Byte, class Call>
bool whole(Byte* bytes, std::size_t count, Call call) {
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

Channel& Channel::operator=(Channel&& other) noexcept {
    std::swap(socket_, other.socket_);  // the temporary or the moved-from one closes it
    return *this;
}

Channel::~Channel() {
    if (socket_ >= 0) ::close(socket_);
}

bool Channel::send(const void* bytes, std::size_t count) const {
    return whole(static_cast<const char*>(bytes), count,
                 [this](const char* from, std::size_t rest) { return ::send(socket_, from, rest, MSG_NOSIGNAL); });
}

bool Channel::receive(void* bytes, std::size_t count) const {
    return whole(static_cast<char*>(bytes), count,
                 [this](char* to, std::size_t rest) { return ::recv(socket_, to, rest, 0); });
}

Channel startOwnProcess(FunctionRef<void(const Channel&)> work, std::chrono::seconds most) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0) return Channel(-1);
    Channel here(ends[0]);
    Channel there(ends[1]);
    const pid_t child = ::fork();
    if (child < 0) return Channel(-1);
    if (child == 0) {
        here = Channel(-1);  // else it would keep its own question waiting
        ::signal(SIGALRM, SIG_DFL);
        ::alarm(static_cast<unsigned>(most.count()));
        try {
            work(there);
        } catch (...) {  // out of memory, say
        }
        ::_exit(0);
    }
    return here;
}

}  // namespace orvel
