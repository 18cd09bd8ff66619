// The designs on disk: one folder under the user's home directory, shared by the designer application and the widget.
// Nothing is kept in memory: each call resolves the folder and reads the files again. Failures are absorbed here and
// nowhere else: what can't be read is an empty list or no design, and what can't be written changes nothing. Any thread
// may call; a reader sees the whole old or the whole new file. There is no lock: of two overlapping changes, the later
// one wins.
//
// Beware: `add` and `remove`, too, take a list that can't be read for an empty one, even when the cause is temporary
// (an I/O error, too many open files, no memory). What they save then replaces all stored designs. A program that
// changes a person's designs uses store_files.h, which distinguishes a missing file from one that can't be read, and
// holds the folder's lock.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::WidgetStore {

/// The app-group identifier that is shared with the designer application. The store itself doesn't use it.
inline constexpr std::string_view appGroup = "group.app.orvel.shared";

/// The store folder: "Library/Application Support/Orvel" in the home directory of the process's real user. It is
/// created when missing; the call doesn't say whether that succeeded.
std::filesystem::path dir(const Platform& platform = Platform::system());

/// The stored designs in file order, as decoded; duplicates included. Empty when the file is missing, unreadable, not
/// entirely valid, or too large for memory.
std::vector<WidgetSpec> load(const Platform& platform = Platform::system());

/// Replaces the list. One that can't be encoded (a `progress` that isn't finite, a text that isn't UTF-8) changes
/// nothing.
void save(const std::vector<WidgetSpec>& specs, const Platform& platform = Platform::system());

/// Puts the design first, replacing all others with its id, and saves. Returns the new list, whether it was saved or
/// not.
std::vector<WidgetSpec> add(WidgetSpec spec, const Platform& platform = Platform::system());

/// Removes every design with that id, and saves in any case.
void remove(std::string_view id, const Platform& platform = Platform::system());

/// Keeps one design beside the list, or none. One that can't be encoded counts as none.
void setPending(const std::optional<WidgetSpec>& spec, const Platform& platform = Platform::system());

/// The design kept beside the list. Reading it leaves it there.
std::optional<WidgetSpec> pending(const Platform& platform = Platform::system());

/// Compute the lists that `add` and `remove` save. Ids are compared by canonical equivalence.
std::vector<WidgetSpec> adding(WidgetSpec spec, std::vector<WidgetSpec> specs);
std::vector<WidgetSpec> removing(std::string_view id, std::vector<WidgetSpec> specs);

}  // namespace orvel::WidgetStore
