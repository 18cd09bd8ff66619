// Reads and writes the store's two files and says why something fails, which WidgetStore doesn't. Nothing here locks: a
// caller that reads, changes and writes holds the folder's lock itself.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/widget_spec.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/platform.h"
#include "platform/foundation/result.h"

namespace orvel {

/// A `progress` is not finite, or a text is not valid UTF-8.
struct EncodingFailure {};

struct StoreFailure {
    std::filesystem::path file;
    std::variant<FileFailure, DecodingFailure, EncodingFailure> reason;

    /// Whether the file isn't there at all.
    bool isMissing() const;
    /// Whether the whole file was read, and holds something other than designs. Any other failure may be temporary and
    /// says nothing about the file's content.
    bool isInvalid() const;
    /// One line: the file, where in it, and what is wrong there.
    std::string message() const;
};

/// The file has its new content.
struct Written {
    /// Why a loss of power may still bring the old content back; absent when it can't.
    std::optional<StoreFailure> unsynced = {};
};

namespace StoreFiles {

/// The store's folder, below the home directory of the process's real user. Like every call here, this creates the
/// folder when it is missing, and doesn't say whether that succeeded.
std::filesystem::path folder(const Platform& platform);

/// The list of designs.
std::filesystem::path list(const Platform& platform);
/// The one pending design.
std::filesystem::path pending(const Platform& platform);

Result<std::vector<WidgetSpec>, StoreFailure> readList(const Platform& platform);
/// Encodes the list first: if that fails, nothing is changed, and the folder isn't resolved.
Result<Written, StoreFailure> writeList(const std::vector<WidgetSpec>& specs, const Platform& platform);

Result<WidgetSpec, StoreFailure> readPending(const Platform& platform);
Result<Written, StoreFailure> writePending(const WidgetSpec& spec, const Platform& platform);
/// A missing file is a failure.
Result<Written, StoreFailure> removePending(const Platform& platform);
/// Writes the design, or removes the file when there is none or when it can't be encoded.
Result<Written, StoreFailure> replacePending(const std::optional<WidgetSpec>& spec, const Platform& platform);

}  // namespace StoreFiles
}  // namespace orvel
