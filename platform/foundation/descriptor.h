// The owner of a file descriptor.
#pragma once

#include <utility>

namespace orvel {

class Descriptor {
public:
    /// Takes an open descriptor over; a negative value is none.
    explicit Descriptor(int value = -1) : value_(value) {}
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);  // the temporary or the moved-from one closes it
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }

    /// Closes it at once and returns what the system returns: 0, or -1 with errno. 0 when there is nothing to close.
    int close();

private:
    int value_;
};

}  // namespace orvel
