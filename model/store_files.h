// The store's two files, with reasons: what WidgetStore does silently, for callers that tell a person. Nothing here
// locks; a caller that reads, changes and writes holds the folder's lock itself.
#pragma once

#include <filesystem>
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
    /// One line: the file and what is wrong with it.
    std::string message() const;
};

namespace StoreFiles {

/// The list of designs. The folder is resolved, and created when missing, as at every call here.
std::filesystem::path list(const Platform& platform);
/// The one pending design.
std::filesystem::path pending(const Platform& platform);

Result<std::vector<WidgetSpec>, StoreFailure> readList(const Platform& platform);
/// Encodes first: of a list that can't be written nothing is touched, and the folder is not resolved.
Result<Done, StoreFailure> writeList(const std::vector<WidgetSpec>& specs, const Platform& platform);

Result<WidgetSpec, StoreFailure> readPending(const Platform& platform);
Result<Done, StoreFailure> writePending(const WidgetSpec& spec, const Platform& platform);
/// A missing file is a failure.
Result<Done, StoreFailure> removePending(const Platform& platform);

}  // namespace StoreFiles
}  // namespace orvel
