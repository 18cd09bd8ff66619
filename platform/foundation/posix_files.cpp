#include "platform/foundation/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <new>
#include <optional>
#include <utility>

namespace orvel {
namespace {

using std::filesystem::path;

FileFailure failure(const char* operation, int code = errno) {
    return {operation, std::error_code(code, std::generic_category())};
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    int close() { return ::close(std::exchange(number_, -1)); }

private:
    int number_;
};

// Deletes the file at the end of the scope, unless it was kept.
class Temporary {
public:
    explicit Temporary(path name) : name_(std::move(name)) {}
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() {
        if (!kept_) ::unlink(name_.c_str());
    }
    void keep() { kept_ = true; }

private:
    path name_;
    bool kept_ = false;
};

template <class Call>
auto retryingOnSignal(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

Result<std::string, FileFailure> readAll(int descriptor, std::size_t expected) {
    // Room for one byte more shows the end of the file without a second growth; the rest is the slack that vectorised
    // parsers want behind a text.
    constexpr std::size_t slack = 128;
    std::string bytes;
    bytes.reserve(expected + slack);
    std::size_t size = 0;
    for (;;) {
        bytes.resize(size < expected ? expected + 1 : size + 65536);
        const ssize_t count =
            retryingOnSignal([&] { return ::read(descriptor, bytes.data() + size, bytes.size() - size); });
        if (count < 0) return failure("read");
        size += static_cast<std::size_t>(count);
        if (size > Files::largest) return failure("read", EFBIG);
        if (count == 0) break;
        expected = std::max(expected, size);
    }
    bytes.resize(size);
    return bytes;
}

std::optional<FileFailure> writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = retryingOnSignal([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (count < 0) return failure("write");
        if (count == 0) return failure("write", EIO);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

// The file that a chain of symbolic links ends in, which need not exist.
Result<path, FileFailure> behindLinks(path name) {
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code code;
        const path next = std::filesystem::read_symlink(name, code);
        if (code) return name;
        name = name.parent_path() / next;
    }
    return failure("follow the link", ELOOP);
}

path temporaryNameBeside(const path& target) {
    static std::atomic<unsigned> counter{0};
    path name = target;
    name += ".tmp-" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
    return name;
}

}  // namespace

Result<std::string, FileFailure> PosixFiles::read(const path& name) {
    const Descriptor file(
        retryingOnSignal([&] { return ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!file.isOpen()) return failure("open");
    struct stat status;
    if (::fstat(file.number(), &status) != 0) return failure("look at");
    if (!S_ISREG(status.st_mode)) return failure("read", S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > largest) return failure("read", EFBIG);
    try {
        return readAll(file.number(), size);
    } catch (const std::bad_alloc&) {
        return failure("read", ENOMEM);
    }
}

Result<Done, FileFailure> PosixFiles::replace(const path& name, std::string_view bytes) {
    const auto target = behindLinks(name);
    if (!target) return target.failure();

    struct stat old;
    const bool exists = ::stat(target->c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) return failure("replace", S_ISDIR(old.st_mode) ? EISDIR : EINVAL);

    const path temporaryName = temporaryNameBeside(*target);
    Descriptor file(
        retryingOnSignal([&] { return ::open(temporaryName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); }));
    if (!file.isOpen()) return failure("create a file beside");
    Temporary temporary(temporaryName);

    if (exists && ::fchmod(file.number(), old.st_mode & 07777) != 0) return failure("set the mode of");
    if (auto failed = writeAll(file.number(), bytes)) return *failed;
    if (::fsync(file.number()) != 0) return failure("sync");
    if (file.close() != 0) return failure("close");
    if (::rename(temporaryName.c_str(), target->c_str()) != 0) return failure("rename");
    temporary.keep();

    const path folder = target->has_parent_path() ? target->parent_path() : path(".");
    const Descriptor folderFile(
        retryingOnSignal([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    // Some file systems can't sync a folder (EINVAL); the new content is in place either way.
    if (folderFile.isOpen() && ::fsync(folderFile.number()) != 0 && errno != EINVAL) return failure("sync the folder");
    return Done{};
}

Result<Done, FileFailure> PosixFiles::remove(const path& name) {
    if (::unlink(name.c_str()) != 0) return failure("delete");
    return Done{};
}

Result<Done, FileFailure> PosixFiles::createFolders(const path& name) {
    std::error_code code;
    std::filesystem::create_directories(name, code);
    if (code) return FileFailure{"create", code};
    return Done{};
}

}  // namespace orvel
