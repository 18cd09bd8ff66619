#include "platform/foundation/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <new>
#include <optional>
#include <utility>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/folder_lock.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using std::filesystem::path;

FileFailure failure(const char* operation, int code = errno) {
    return {operation, std::error_code(code, std::generic_category())};
}

// A new file to write, which is deleted at the end of the scope unless it is kept.
class Temporary {
public:
    Temporary(path fileName, Descriptor file) : name(std::move(fileName)), descriptor(std::move(file)) {}
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() {
        if (!isKept) ::unlink(name.c_str());
    }

    const path name;
    Descriptor descriptor;
    bool isKept = false;
};

template <class Call>
auto retryingOnSignal(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

Result<std::string, FileFailure> readAll(int descriptor, std::size_t expected) {
    // One more byte shows the end of the file without growing the buffer again; the rest is padding that vectorised
    // parsers need behind a text.
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

path folderOf(const path& file) {
    return file.has_parent_path() ? file.parent_path() : path(".");
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
        if (code == std::errc::invalid_argument || code == std::errc::no_such_file_or_directory) return name;
        if (code) return failure("follow the link", code.value());
        name = name.parent_path() / next;
    }
    return failure("follow the link", ELOOP);
}

// A temporary file is named NAME.tmp-PROCESS-NUMBER.
constexpr std::string_view temporaryMark = ".tmp-";

Result<std::unique_ptr<Temporary>, FileFailure> createTemporaryBeside(const path& target, mode_t mode) {
    static std::atomic<unsigned> counter{0};
    for (;;) {
        path name = target;
        name += std::string(temporaryMark) + std::to_string(::getpid()) + "-" + std::to_string(counter++);
        const int descriptor =
            retryingOnSignal([&] { return ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
        if (descriptor >= 0) return std::make_unique<Temporary>(std::move(name), Descriptor(descriptor));
        // Left by an earlier process with the same process id.
        if (errno != EEXIST) return failure("create a file beside");
    }
}

bool isStale(const path& name) {
    constexpr time_t oneDay = 86'400;  // seconds
    struct stat status;
    return ::lstat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::time(nullptr) - status.st_mtime > oneDay;
}

void sweepStaleTemporaries(const path& target) {
    const std::string beginning = target.filename().string() + std::string(temporaryMark);
    std::error_code code;
    for (std::filesystem::directory_iterator entry(folderOf(target), code), end; !code && entry != end;
         entry.increment(code))
        if (entry->path().filename().string().starts_with(beginning) && isStale(entry->path()))
            ::unlink(entry->path().c_str());
}

// fsync(2) fails with EINTR only because of a signal. A lost write is EIO, which a second call wouldn't report again.
int sync(int descriptor) {
    return retryingOnSignal([&] { return ::fsync(descriptor); });
}

std::optional<FileFailure> syncFolder(const path& folder) {
    const Descriptor file(retryingOnSignal([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!file) return failure("open the folder");
    // Some file systems can't sync a folder and don't need to.
    if (sync(file.get()) != 0 && errno != EINVAL) return failure("sync the folder");
    return std::nullopt;
}

}  // namespace

Result<std::string, FileFailure> PosixFiles::read(const path& name) {
    const Descriptor file(
        retryingOnSignal([&] { return ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!file) return failure("open");
    struct stat status;
    if (::fstat(file.get(), &status) != 0) return failure("look at");
    if (!S_ISREG(status.st_mode)) return failure("read", S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > largest) return failure("read", EFBIG);
    try {
        return readAll(file.get(), size);
    } catch (const std::bad_alloc&) {
        return failure("read", ENOMEM);
    }
}

Result<Replaced, FileFailure> PosixFiles::replace(const path& name, std::string_view bytes, NewFile newFile) {
    const auto target = behindLinks(name);
    if (!target) return target.failure();

    struct stat old;
    const bool exists = ::stat(target->c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return failure("look at");
    if (exists && !S_ISREG(old.st_mode)) return failure("replace", S_ISDIR(old.st_mode) ? EISDIR : EINVAL);

    const auto created = createTemporaryBeside(*target, newFile == NewFile::ownerOnly ? 0600 : 0666);
    if (!created) return created.failure();
    Temporary& temporary = **created;
    Descriptor& file = temporary.descriptor;

    if (exists && ::fchmod(file.get(), old.st_mode & 07777) != 0) return failure("set the mode of");
    if (auto failed = writeAll(file.get(), bytes)) return *failed;
    if (sync(file.get()) != 0) return failure("sync");
    // Even when interrupted, the descriptor is closed; and the content is synced already.
    if (file.close() != 0 && errno != EINTR) return failure("close");
    if (::rename(temporary.name.c_str(), target->c_str()) != 0) return failure("rename");
    temporary.isKept = true;

    Replaced replaced{syncFolder(folderOf(*target))};
    sweepStaleTemporaries(*target);
    return replaced;
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

Result<std::vector<std::string>, FileFailure> PosixFiles::names(const path& folder) {
    std::vector<std::string> names;
    std::error_code code;
    for (std::filesystem::directory_iterator entry(folder, code), end; !code && entry != end; entry.increment(code))
        names.push_back(entry->path().filename().string());
    if (code) return FileFailure{"list", code};
    std::sort(names.begin(), names.end());
    return names;
}

Result<std::unique_ptr<FolderLock>, FileFailure> PosixFiles::lock(const path& folder, const LockWait& wait) {
    return lockFolder(folder, wait);
}

namespace {

// Every operation that fails here, in folder_lock.cpp and in the store.
[[maybe_unused]] constexpr const char* failures[]{
    toTranslate("can't open: {0}"),
    toTranslate("can't read: {0}"),
    toTranslate("can't write: {0}"),
    toTranslate("can't look at: {0}"),
    toTranslate("can't replace: {0}"),
    toTranslate("can't follow the link: {0}"),
    toTranslate("can't create a file beside: {0}"),
    toTranslate("can't open the folder: {0}"),
    toTranslate("can't sync the folder: {0}"),
    toTranslate("can't set the mode of: {0}"),
    toTranslate("can't sync: {0}"),
    toTranslate("can't close: {0}"),
    toTranslate("can't rename: {0}"),
    toTranslate("can't delete: {0}"),
    toTranslate("can't create: {0}"),
    toTranslate("can't list: {0}"),
    toTranslate("can't lock: {0}"),
};

}  // namespace

std::string FileFailure::message() const {
    std::string why = code.message();
    if (operation == std::string_view("read") && code == std::errc::file_too_large)
        why = sentence("it has more than {0} MiB, the most that is read", Files::largest >> 20);
    if (operation == std::string_view("lock") && code == std::errc::timed_out)
        why = sentence("another process still holds the lock");
    const std::string pattern = "can't " + std::string(operation) + ": {0}";
    return sentence(pattern, why);
}

}  // namespace orvel
