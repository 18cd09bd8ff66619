// The file operations the system needs: whole files in, whole files out. Failures are returned, never thrown.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/foundation/result.h"

namespace orvel {

struct FileFailure {
    const char* operation;  ///< what was tried, as a verb phrase: "open", "rename"
    std::error_code code;

    /// "can't open: No such file or directory"
    std::string message() const;
};

/// A file has its new content, for every reader.
struct Replaced {
    /// Why a loss of power may still bring the old content back: the folder couldn't be synced. Absent otherwise.
    std::optional<FileFailure> unsynced = {};
};

/// Who may read a newly created file.
enum class NewFile {
    asUmaskAllows,  ///< mode 0666 less the umask
    ownerOnly,      ///< mode 0600
};

/// How long to wait for a lock that another process holds.
struct LockWait {
    std::chrono::duration<double> most = std::chrono::seconds(30);
    std::chrono::duration<double> silent = std::chrono::seconds(1);
    /// Called once when the silent time is over and the lock still isn't free, with who holds it: "process 4711
    /// (orvel)", or "another process" where the system doesn't say.
    std::function<void(const std::string& holder)> tell = {};
};

/// Held as long as the object lives.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

class Files {
public:
    virtual ~Files() = default;

    /// The whole content of a regular file. A folder, FIFO or device is refused without waiting for it; so is a file of
    /// more than `largest` bytes, or one that memory can't hold.
    virtual Result<std::string, FileFailure> read(const std::filesystem::path& path) = 0;

    /// Replaces a file's content atomically: readers see either the old or the new content, and on failure the old one
    /// stays. Once the new content is in place, the operation has succeeded; the result says whether a loss of power
    /// may undo it. An existing file keeps its mode; a symbolic link stays, and the file it points to is replaced. The
    /// folder must exist.
    virtual Result<Replaced, FileFailure> replace(const std::filesystem::path& path, std::string_view bytes,
                                                  NewFile newFile = NewFile::asUmaskAllows) = 0;

    /// Deletes one file or symbolic link. A missing file is a failure.
    virtual Result<Done, FileFailure> remove(const std::filesystem::path& path) = 0;

    /// Creates the folder and every missing parent. Succeeds when the folder exists already.
    virtual Result<Done, FileFailure> createFolders(const std::filesystem::path& path) = 0;

    /// The names of a folder's entries, in the order of their bytes.
    virtual Result<std::vector<std::string>, FileFailure> names(const std::filesystem::path& folder) = 0;

    /// Waits until no other process holds the folder's advisory lock (flock), and takes it. A lock that doesn't become
    /// free in time fails with std::errc::timed_out.
    virtual Result<std::unique_ptr<FolderLock>, FileFailure> lock(const std::filesystem::path& folder,
                                                                  const LockWait& wait = {}) = 0;

    /// 512 MiB: more than any store holds, little enough for any machine that shows one. A reader holds the file and
    /// all that it makes of it in memory at once.
    static constexpr std::size_t largest = std::size_t{512} << 20;
};

}  // namespace orvel
