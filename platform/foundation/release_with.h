// A deleter that calls a C library's function for releasing a handle.
#pragma once

namespace orvel {

template <auto release>
struct ReleaseWith {
    template <class Handle>
    void operator()(Handle* handle) const {
        release(handle);
    }
};

}  // namespace orvel
