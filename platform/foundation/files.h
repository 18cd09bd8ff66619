// The file operations the system needs: whole files in, whole files out. Every failure is told, none is thrown.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/foundation/result.h"

namespace orvel {

struct FileFailure {
    const char* operation;  ///< what was tried, as a verb phrase: "open", "rename"
    std::error_code code;

    /// "can't open: No such file or directory"
    std::string message() const { return "can't " + std::string(operation) + ": " + code.message(); }
};

/// Held as long as the object lives.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

class Files {
public:
    virtual ~Files() = default;

    /// The whole of a regular file. A folder, FIFO or device is refused at once, without waiting for it; so is a file
    /// of more than `largest` bytes, or one that memory can't hold.
    virtual Result<std::string, FileFailure> read(const std::filesystem::path& path) = 0;

    /// Replaces a file's content in one step: readers see the old or the new content whole, and on failure the old one
    /// stays. A new file gets mode 0666 less the umask, an old one keeps its mode; a symbolic link stays and the file
    /// it points to is replaced. The folder must exist.
    virtual Result<Done, FileFailure> replace(const std::filesystem::path& path, std::string_view bytes) = 0;

    /// Deletes one file or symbolic link. A missing file is a failure.
    virtual Result<Done, FileFailure> remove(const std::filesystem::path& path) = 0;

    /// Makes the folder and every missing parent. A folder that exists is success.
    virtual Result<Done, FileFailure> createFolders(const std::filesystem::path& path) = 0;

    /// Waits until no other process holds the folder's advisory lock, and takes it.
    virtual Result<std::unique_ptr<FolderLock>, FileFailure> lock(const std::filesystem::path& folder) = 0;

    /// 512 MiB: more than any store holds, little enough for any machine that shows one.
    static constexpr std::size_t largest = std::size_t{512} << 20;
};

}  // namespace orvel
