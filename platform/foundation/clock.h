// The machine's clock, as an interface so that a reading can be fixed.
#pragma once

#include "platform/foundation/date.h"

namespace orvel {

class Clock {
public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
};

/// A clock that stands still.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Date date) : date_(date) {}
    Date now() const override { return date_; }

private:
    Date date_;
};

}  // namespace orvel
