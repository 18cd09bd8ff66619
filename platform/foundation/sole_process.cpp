#include "platform/foundation/sole_process.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace orvel {

std::variant<Descriptor, OtherProcess> becomeSole(const std::string& name) {
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    if (!folder || *folder != '/') return Descriptor();
    const std::string file = std::string(folder) + '/' + name + ".lock";

    Descriptor lock(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock) return Descriptor();
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK) return Descriptor();
        char process[32];
        const ssize_t length = ::read(lock.get(), process, sizeof process);
        return OtherProcess{std::string(process, static_cast<std::size_t>(std::max<ssize_t>(length, 0)))};
    }
    const std::string process = std::to_string(::getpid());
    const bool isTold = ::ftruncate(lock.get(), 0) == 0 &&
                        ::write(lock.get(), process.data(), process.size()) == static_cast<ssize_t>(process.size());
    (void)isTold;  // only for a message of the next one's
    return lock;
}

}  // namespace orvel
