#include "platform/foundation/descriptor.h"

#include <unistd.h>

namespace orvel {

int Descriptor::close() {
    const int closed = std::exchange(value_, -1);
    return closed >= 0 ? ::close(closed) : 0;
}

}  // namespace orvel
