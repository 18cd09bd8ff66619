#include "platform/foundation/sole_process.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace orvel {
namespace {

std::optional<std::string> lockFile(const std::string& name) {
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    if (!folder || *folder != '/') return std::nullopt;
    return std::string(folder) + '/' + name + ".lock";
}

OtherProcess holder(const Descriptor& lock) {
    char process[32];
    const ssize_t length = ::read(lock.get(), process, sizeof process);
    return {std::string(process, static_cast<std::size_t>(std::max<ssize_t>(length, 0)))};
}

// Somebody who only looks holds it for a moment.
bool take(const Descriptor& lock) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (::flock(lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

}  // namespace

std::variant<Descriptor, OtherProcess> becomeSole(const std::string& name) {
    const auto file = lockFile(name);
    if (!file) return Descriptor();
    Descriptor lock(::open(file->c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock) return Descriptor();
    if (!take(lock)) return holder(lock);
    const std::string process = std::to_string(::getpid());
    const bool isTold = ::ftruncate(lock.get(), 0) == 0 &&
                        ::write(lock.get(), process.data(), process.size()) == static_cast<ssize_t>(process.size());
    (void)isTold;  // only for a message of the next one's
    return lock;
}

std::optional<OtherProcess> findSole(const std::string& name) {
    const auto file = lockFile(name);
    const Descriptor lock(file ? ::open(file->c_str(), O_RDONLY | O_CLOEXEC) : -1);
    if (!lock || ::flock(lock.get(), LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK) return std::nullopt;
    return holder(lock);
}

}  // namespace orvel
