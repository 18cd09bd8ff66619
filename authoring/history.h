// The history of changes of the stored designs, so that they can be taken back: one line of JSON each, the newest last,
// in "orvel/history" below the person's state folder ($XDG_STATE_HOME, or ".local/state" in the home directory). It
// holds the newest 100 changes, or fewer when they take more than 16 MiB, but always the newest one. Nothing here
// locks; a caller that writes holds the lock of the store's folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "authoring/change.h"
#include "platform/foundation/platform.h"

namespace orvel::History {

std::filesystem::path file(const Platform& platform);

/// The whole text; empty when there is no file.
Outcome<std::string> read(const Platform& platform);
/// Replaces the file, which only the person may read. An empty text deletes it.
Outcome<Done> write(std::string_view text, const Platform& platform);

/// The text with one more change. Absent when the designs can't be written as JSON.
std::optional<std::string> with(const Change& change, std::string text);
/// The newest change, if there is any. A line that isn't understood is a failure.
Outcome<std::optional<Change>> last(std::string_view text);
std::string_view withoutLast(std::string_view text);

}  // namespace orvel::History
