// Copies of a file that is about to be replaced although nothing else holds what it says: one that doesn't load, or one
// in whose place such a copy is brought back. Copies lie beside the file.
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

/// Copies the file to "<name>.invalid-<time>" (or replaced), or with "-2" and so on behind it where that is taken, and
/// returns the copy's path. Only the person may read it. A copy that a loss of power may undo is none.
Outcome<std::string> keepBeside(const std::filesystem::path& file, Kept why, const Platform& platform);

/// The copies of that file, the newest first.
Outcome<std::vector<std::filesystem::path>> keptBeside(const std::filesystem::path& file, const Platform& platform);

struct BroughtBack {
    bool wroteAnything = true;                  ///< otherwise the store's list was the same already
    std::optional<std::string> keptAs = {};     ///< the path of what was there before, when that was anything
    std::optional<std::string> mayBeLost = {};  ///< why a loss of power may yet undo this
};

/// Puts a copy of the store's list in its place, whether it loads or not. The copy stays, and what was there is kept
/// beside. The folder's lock is the caller's.
Outcome<BroughtBack> bringBack(const std::filesystem::path& copy, const Platform& platform);

}  // namespace orvel
