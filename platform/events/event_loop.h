// Waits on one thread for descriptors and calls back. Nothing polls: with nothing due, the process sleeps.
#pragma once

#include <functional>
#include <list>
#include <memory>

namespace orvel {

class EventLoop {
public:
    using Handler = std::function<void()>;

    /// Stops watching when it is destroyed. It must not outlive its loop.
    class Watch {
    public:
        struct Source;
        explicit Watch(std::shared_ptr<Source> source) : source_(std::move(source)) {}
        Watch(Watch&&) = default;
        Watch& operator=(Watch&& other) noexcept;
        ~Watch();

    private:
        std::shared_ptr<Source> source_;
    };

    /// Calls `readable` while the descriptor can be read or is at its end, and `beforeWaiting` each time before the
    /// loop sleeps, which is when output is flushed and what is already buffered is handled.
    [[nodiscard]] Watch watch(int descriptor, Handler readable, Handler beforeWaiting = {});

    /// Until `stop`.
    void run();
    void stop() { running_ = false; }

private:
    std::list<std::weak_ptr<Watch::Source>> sources_;
    bool running_ = false;
};

}  // namespace orvel
