// The file system of a POSIX machine.
#pragma once

#include "platform/foundation/files.h"

namespace orvel {

class PosixFiles final : public Files {
public:
    Result<std::string, FileFailure> read(const std::filesystem::path& path) override;
    Result<Replaced, FileFailure> replace(const std::filesystem::path& path, std::string_view bytes,
                                          NewFile newFile = NewFile::asUmaskAllows) override;
    Result<Done, FileFailure> remove(const std::filesystem::path& path) override;
    Result<Done, FileFailure> createFolders(const std::filesystem::path& path) override;
    Result<std::vector<std::string>, FileFailure> names(const std::filesystem::path& folder) override;
    Result<std::unique_ptr<FolderLock>, FileFailure> lock(const std::filesystem::path& folder,
                                                          const LockWait& wait = {}) override;
};

}  // namespace orvel
