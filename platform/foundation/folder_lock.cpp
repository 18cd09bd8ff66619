#include "platform/foundation/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/foundation/descriptor.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using Seconds = std::chrono::duration<double>;

class HeldFolder final : public FolderLock {
public:
    explicit HeldFolder(Descriptor folder) : folder_(std::move(folder)) {}

private:
    Descriptor folder_;  // closing it ends the lock
};

FileFailure failure(const char* operation, int code = errno) {
    return {operation, std::error_code(code, std::generic_category())};
}

// proc(5): "1: FLOCK  ADVISORY  WRITE 4711 08:01:1234 0 EOF", device numbers hexadecimal; those who wait have "->".
std::string holder(int folder) {
    std::string someone = sentence("another process");
    struct stat status;
    if (::fstat(folder, &status) != 0) return someone;
    char place[64];
    std::snprintf(place, sizeof place, "%02x:%02x:%ju", ::major(status.st_dev), ::minor(status.st_dev),
                  static_cast<std::uintmax_t>(status.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, type, mode, access, where;
        long process = 0;
        if (!(words >> number >> type >> mode >> access >> process >> where)) continue;
        if (type != "FLOCK" || where != place || process <= 0) continue;
        std::string name;
        std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm") >> std::ws, name);
        return name.empty() ? sentence("process {0}", process) : sentence("process {0} ({1})", process, name);
    }
    return someone;
}

}  // namespace

Result<std::unique_ptr<FolderLock>, FileFailure> lockFolder(const std::filesystem::path& name, const LockWait& wait) {
    int opened = -1;
    do opened = ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    while (opened < 0 && errno == EINTR);
    if (opened < 0) return failure("open");
    Descriptor folder(opened);

    const auto began = std::chrono::steady_clock::now();
    Seconds pause = std::chrono::milliseconds(1);
    bool isTold = false;
    while (::flock(folder.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        if (errno != EWOULDBLOCK) return failure("lock");
        const Seconds waited = std::chrono::steady_clock::now() - began;
        const bool isOver = waited >= wait.most;
        if (!isTold && (isOver || waited >= wait.silent) && wait.tell) {
            isTold = true;
            wait.tell(holder(folder.get()));
        }
        if (isOver) return failure("lock", ETIMEDOUT);
        std::this_thread::sleep_for(std::min(pause, wait.most - waited));
        pause = std::min<Seconds>(2 * pause, std::chrono::milliseconds(50));
    }
    return std::unique_ptr<FolderLock>(std::make_unique<HeldFolder>(std::move(folder)));
}

}  // namespace orvel
