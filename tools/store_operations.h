// The operations of the command that change the store, or list it. Every change happens under the folder's lock and is
// written in one step.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

/// A new design as the options give it; absent ones are left to the record's constructor.
struct NewDesign {
    std::optional<std::string> json = {};  ///< a record's file, or "-"; then nothing else is given
    std::optional<std::string> id = {};
    std::string title = {};
    std::string kind = {};
    std::optional<std::string> accent = {};
    std::optional<std::string> symbol = {};
    std::optional<std::string> primary = {};
    std::optional<std::string> secondary = {};
    std::vector<std::string> items = {};
    std::optional<std::string> progress = {};
    std::optional<std::string> target = {};
};

struct Change {
    std::string reference;
    std::vector<std::string> assignments = {};
    std::vector<std::string> unset = {};
};

enum class ListForm { table, json, ids };

/// Puts a design first, in place of one with its id, and prints the id.
Outcome<Done> add(const NewDesign& design, const Platform& platform, Console& console);
/// Changes fields in place.
Outcome<Done> set(const Change& change, const Platform& platform, Console& console);
Outcome<Done> front(const std::string& reference, const Platform& platform, Console& console);
/// All of them, or none when one isn't found.
Outcome<Done> remove(const std::vector<std::string>& references, const Platform& platform, Console& console);
Outcome<Done> list(ListForm form, const Platform& platform, Console& console);

/// The pending design, as words or as its record (null when there is none).
Outcome<Done> showPending(bool json, const Platform& platform, Console& console);
Outcome<Done> setPending(const std::string& file, const Platform& platform, Console& console);
/// None pending is fine.
Outcome<Done> clearPending(const Platform& platform);
/// Adds the pending design, prints its id, and clears it.
Outcome<Done> acceptPending(const Platform& platform, Console& console);

}  // namespace orvel::tools
