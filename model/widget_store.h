// The designs on disk: one folder under the user's home directory, shared by the designer application and the widget.
// No state in memory: each call resolves the folder and reads the file anew. Failures are absorbed here and nowhere
// else: what can't be read is an empty list. Any thread may call; a reader sees an old or a new file whole.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::WidgetStore {

/// The app-group identifier that is shared with the designer application. The store itself doesn't use it.
inline constexpr std::string_view appGroup = "group.app.orvel.shared";

/// The store folder: "Library/Application Support/Orvel" in the home directory of the process's real user. It is
/// created when missing; whether that succeeded doesn't show.
std::filesystem::path dir(const Platform& platform = Platform::system());

/// The list of designs.
std::filesystem::path listFile(const Platform& platform = Platform::system());

/// The stored designs in file order, as decoded; duplicates included. Empty when the file is missing, unreadable, not
/// entirely valid, or too large for memory.
std::vector<WidgetSpec> load(const Platform& platform = Platform::system());

}  // namespace orvel::WidgetStore
