// The store's two files, with reasons: what WidgetStore does silently, for callers that tell a person. Nothing here
// locks; a caller that reads, changes and writes holds the folder's lock itself.
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
    /// Whether the file was read whole and holds something else than designs. Any other failure may be gone at the next
    /// try, and says nothing of the file.
    bool isInvalid() const;
    /// One line: the file, where in it, and what is wrong there.
    std::string message() const;
};

/// The file has its new content.
struct Written {
    /// Why a loss of power may yet bring the old content back, when it may.
    std::optional<StoreFailure> unsynced = {};
};

namespace StoreFiles {

/// The store's folder, below the home directory of the process's real user. It is created when missing, as at every
/// call here; whether that succeeded doesn't show.
std::filesystem::path folder(const Platform& platform);

/// The list of designs.
std::filesystem::path list(const Platform& platform);
/// The one pending design.
std::filesystem::path pending(const Platform& platform);

Result<std::vector<WidgetSpec>, StoreFailure> readList(const Platform& platform);
/// Encodes first: of a list that can't be written nothing is touched, and the folder is not resolved.
Result<Written, StoreFailure> writeList(const std::vector<WidgetSpec>& specs, const Platform& platform);

Result<WidgetSpec, StoreFailure> readPending(const Platform& platform);
Result<Written, StoreFailure> writePending(const WidgetSpec& spec, const Platform& platform);
/// A missing file is a failure.
Result<Written, StoreFailure> removePending(const Platform& platform);
/// Writes the design, or removes the file when there is none or when it can't be encoded.
Result<Written, StoreFailure> replacePending(const std::optional<WidgetSpec>& spec, const Platform& platform);

}  // namespace StoreFiles
}  // namespace orvel
