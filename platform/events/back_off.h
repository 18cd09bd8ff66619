// How long to wait before the next attempt at something that keeps failing.
#pragma once

#include <algorithm>
#include <chrono>

namespace orvel {

class BackOff {
public:
    static constexpr std::chrono::milliseconds shortest{100};
    static constexpr std::chrono::milliseconds longest{60'000};

    /// Twice as long each time.
    std::chrono::milliseconds next() {
        const auto delay = next_;
        next_ = std::min(next_ * 2, longest);
        return delay;
    }

    void reset() { next_ = shortest; }

private:
    std::chrono::milliseconds next_ = shortest;
};

}  // namespace orvel
