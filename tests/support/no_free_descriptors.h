// A process that has used up its descriptors.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace orvel::test {

/// While it lives, no descriptor can be opened.
class NoFreeDescriptors {
public:
    NoFreeDescriptors() {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const int lowestFree = ::dup(0);
        ::close(lowestFree);
        const rlimit none{static_cast<rlim_t>(lowestFree), before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    NoFreeDescriptors(const NoFreeDescriptors&) = delete;
    ~NoFreeDescriptors() { ::setrlimit(RLIMIT_NOFILE, &before_); }

private:
    rlimit before_{};
};

}  // namespace orvel::test
