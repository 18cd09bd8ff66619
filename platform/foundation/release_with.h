// A deleter that calls the function by which a C library takes a handle back.
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
