// The advisory lock of a folder (flock).
#pragma once

#include "platform/foundation/files.h"

namespace orvel {

/// As `Files::lock` says.
Result<std::unique_ptr<FolderLock>, FileFailure> lockFolder(const std::filesystem::path& folder, const LockWait& wait);

}  // namespace orvel
