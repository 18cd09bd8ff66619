#include "platform/events/event_loop.h"

#include <poll.h>

#include <cerrno>
#include <utility>
#include <vector>

namespace orvel {
namespace {

constexpr int pauseMilliseconds = 1000;

// The system may want memory, or the limit of descriptors may have been set below what is watched. Both pass, and
// trying again at once would keep a processor busy until then.
void pauseAfterFailure(int error) {
    if (error != EINTR) ::poll(nullptr, 0, pauseMilliseconds);
}

}  // namespace

struct EventLoop::Watch::Source {
    int descriptor;
    Handler readable;
    Handler beforeWaiting;
    bool watched = true;
};

EventLoop::Watch& EventLoop::Watch::operator=(Watch&& other) noexcept {
    std::swap(source_, other.source_);
    return *this;
}

EventLoop::Watch::~Watch() {
    if (source_) source_->watched = false;
}

EventLoop::Watch EventLoop::watch(int descriptor, Handler readable, Handler beforeWaiting) {
    auto source = std::make_shared<Watch::Source>();
    source->descriptor = descriptor;
    source->readable = std::move(readable);
    source->beforeWaiting = std::move(beforeWaiting);
    sources_.push_back(source);
    return Watch(std::move(source));
}

void EventLoop::run() {
    running_ = true;
    // Held while their handlers run: a handler may end any watch, its own included.
    std::vector<std::shared_ptr<Watch::Source>> sources;
    std::vector<pollfd> descriptors;
    while (running_) {
        sources.clear();
        sources_.remove_if([&](const std::weak_ptr<Watch::Source>& weak) {
            auto source = weak.lock();
            if (!source || !source->watched) return true;
            sources.push_back(std::move(source));
            return false;
        });
        for (const auto& source : sources)
            if (source->watched && source->beforeWaiting) source->beforeWaiting();
        if (!running_) return;

        descriptors.clear();
        for (const auto& source : sources)
            descriptors.push_back({source->watched ? source->descriptor : -1, POLLIN, 0});
        if (::poll(descriptors.data(), descriptors.size(), -1) < 0) {
            pauseAfterFailure(errno);
            continue;
        }
        for (std::size_t i = 0; i < sources.size() && running_; ++i)
            if (descriptors[i].revents && sources[i]->watched) sources[i]->readable();
    }
}

}  // namespace orvel
