// The owner of a file descriptor. Private to this folder.
#pragma once

#include <unistd.h>

#include <utility>

namespace orvel {

class Descriptor {
public:
    explicit Descriptor(int value = -1) : value_(value) {}
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Descriptor() {
        if (value_ >= 0) ::close(value_);
    }

    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }

private:
    int value_;
};

}  // namespace orvel
