// Keeps copies of files that are about to be replaced and whose content would be lost: a file that isn't valid, or one
// in whose place an earlier copy is brought back. The copies lie beside the file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

/// Why a file was kept, which its copy's name says.
enum class Kept {
    invalid,   ///< it didn't load
    replaced,  ///< an earlier file was brought back in its place
};

/// Copies the file to "<name>.invalid-<time>" (or replaced), followed by "-2" and so on when that name is taken, and
/// returns the copy's path. Only the person may read it. A copy that a loss of power may undo is a failure.
Outcome<std::string> keepBeside(const std::filesystem::path& file, Kept why, const Platform& platform);

/// The copies of that file, the newest first.
Outcome<std::vector<std::filesystem::path>> keptBeside(const std::filesystem::path& file, const Platform& platform);

struct BroughtBack {
    bool wroteAnything = true;                  ///< false: the store's list was the same already
    std::optional<std::string> keptAs = {};     ///< the path of the copy of the former list, if there was one
    std::optional<std::string> mayBeLost = {};  ///< why a loss of power may still undo this
};

/// Brings a copy of the store's list back, whether it is valid or not. The copy stays, and the former list is kept as
/// another copy. The caller holds the folder's lock.
Outcome<BroughtBack> bringBack(const std::filesystem::path& copy, const Platform& platform);

}  // namespace orvel
