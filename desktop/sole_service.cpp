#include "desktop/sole_service.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace orvel {
namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::variant<Descriptor, OtherService> becomeSoleService() {
    const std::string folder = variable("XDG_RUNTIME_DIR");
    if (!folder.starts_with('/')) return Descriptor();
    std::string display = variable("WAYLAND_DISPLAY").empty() ? variable("DISPLAY") : variable("WAYLAND_DISPLAY");
    std::replace(display.begin(), display.end(), '/', '-');
    const std::string file = folder + "/orvel-desktop-" + display + ".lock";

    Descriptor lock(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock) return Descriptor();
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK) return Descriptor();
        char process[32];
        const ssize_t length = ::read(lock.get(), process, sizeof process);
        return OtherService{std::string(process, static_cast<std::size_t>(std::max<ssize_t>(length, 0)))};
    }
    const std::string process = std::to_string(::getpid());
    const bool isTold = ::ftruncate(lock.get(), 0) == 0 &&
                        ::write(lock.get(), process.data(), process.size()) == static_cast<ssize_t>(process.size());
    (void)isTold;  // only for a message of the next one's
    return lock;
}

}  // namespace orvel
