#include "designer/http/server.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <vector>

#include "designer/http/connection.h"
#include "platform/events/timer.h"
#include "platform/foundation/descriptor.h"

namespace orvel::designer {

class HttpServer::State {
public:
    State(EventLoop& loop, Descriptor listener, Descriptor epoll, Handlers handlers, const HttpLimits& limits)
        : listener_(std::move(listener)),
          epoll_(std::move(epoll)),
          handlers_(std::move(handlers)),
          limits_(limits),
          watch_(loop.watch(epoll_.get(), [this] { handleEvents(); })),
          sweep_(loop, [this] { sweep(); }) {
        epoll_event event{EPOLLIN, {.fd = listener_.get()}};
        ::epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, listener_.get(), &event);
    }

    std::uint16_t port() const {
        sockaddr_in address{};
        socklen_t length = sizeof address;
        ::getsockname(listener_.get(), reinterpret_cast<sockaddr*>(&address), &length);
        return ntohs(address.sin_port);
    }

    void send(const std::string& text) {
        std::vector<int> streams;
        for (const auto& [descriptor, connection] : connections_)
            if (connection.isStream()) streams.push_back(descriptor);
        for (const int descriptor : streams) {
            connections_.at(descriptor).sendEvent(text);
            proceed(descriptor);
        }
        sweepInTime();
    }

private:
    void handleEvents() {
        epoll_event events[32];
        const int count = ::epoll_wait(epoll_.get(), events, std::size(events), 0);
        for (int i = 0; i < count; ++i) {
            if (events[i].data.fd == listener_.get())
                accept();
            else if (connections_.contains(events[i].data.fd))
                proceed(events[i].data.fd);
        }
        sweepInTime();
    }

    void accept() {
        for (;;) {
            Descriptor socket(::accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
            if (!socket) return;
            if (connections_.size() >= limits_.connections && !dropOldest()) continue;
            const int on = 1;
            ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
            epoll_event event{EPOLLIN | EPOLLRDHUP, {.fd = socket.get()}};
            if (::epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, socket.get(), &event) != 0) continue;
            const int descriptor = socket.get();
            connections_.try_emplace(descriptor, std::move(socket), handlers_, limits_);
        }
    }

    // Event streams belong to open pages, and aren't dropped.
    bool dropOldest() {
        const auto oldest = std::ranges::min_element(connections_, {}, [](const auto& entry) {
            return std::pair(entry.second.isStream(), entry.second.since());
        });
        if (oldest->second.isStream()) return false;
        connections_.erase(oldest);
        return true;
    }

    void proceed(int descriptor) {
        HttpConnection& connection = connections_.at(descriptor);
        const bool stays = connection.proceed();
        if (stays) {
            const std::uint32_t in = connection.wantsInput() ? EPOLLIN | EPOLLRDHUP : 0u;
            epoll_event event{in | (connection.hasOutput() ? EPOLLOUT : 0u), {.fd = descriptor}};
            ::epoll_ctl(epoll_.get(), EPOLL_CTL_MOD, descriptor, &event);
        } else {
            connections_.erase(descriptor);
        }
        tellStreams();
    }

    void sweep() {
        const auto now = HttpConnection::Clock::now();
        std::erase_if(connections_, [now](const auto& entry) {
            const auto deadline = entry.second.deadline();
            return deadline && *deadline <= now;
        });
        tellStreams();
        sweepInTime();
    }

    // With nothing but event streams, no timer is set.
    void sweepInTime() {
        std::optional<HttpConnection::Clock::time_point> first;
        for (const auto& [descriptor, connection] : connections_)
            if (const auto deadline = connection.deadline(); deadline && (!first || *deadline < *first))
                first = deadline;
        if (!first) return;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*first - HttpConnection::Clock::now());
        sweep_.set(std::max(left, std::chrono::milliseconds(0)));
    }

    void tellStreams() {
        const auto count = static_cast<std::size_t>(
            std::ranges::count_if(connections_, [](const auto& entry) { return entry.second.isStream(); }));
        if (count != std::exchange(streams_, count)) handlers_.streamsChanged(count);
    }

    Descriptor listener_;
    Descriptor epoll_;
    Handlers handlers_;
    HttpLimits limits_;
    std::map<int, HttpConnection> connections_;
    std::size_t streams_ = 0;
    EventLoop::Watch watch_;
    DelayTimer sweep_;
};

HttpServer::HttpServer(std::unique_ptr<State> state) : state_(std::move(state)) {}
HttpServer::~HttpServer() = default;

Outcome<std::unique_ptr<HttpServer>> HttpServer::listen(EventLoop& loop, std::uint16_t port, Handlers handlers,
                                                        const HttpLimits& limits) {
    const auto failure = [port] {
        return Failure{"port " + std::to_string(port) + ": can't listen: " + std::strerror(errno) +
                       (port == 0 ? "" : "; without --port a free one is taken")};
    };
    Descriptor listener(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    Descriptor epoll(::epoll_create1(EPOLL_CLOEXEC));
    if (!listener || !epoll) return failure();
    const int on = 1;
    ::setsockopt(listener.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener.get(), SOMAXCONN) != 0)
        return failure();
    return std::unique_ptr<HttpServer>(new HttpServer(
        std::make_unique<State>(loop, std::move(listener), std::move(epoll), std::move(handlers), limits)));
}

std::uint16_t HttpServer::port() const {
    return state_->port();
}

void HttpServer::send(std::string_view event, std::string_view data) {
    state_->send("event: " + std::string(event) + "\ndata: " + std::string(data) + "\n\n");
}

}  // namespace orvel::designer
