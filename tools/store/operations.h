// The operations of the command that change the list of designs. Every change happens under the folder's lock, is
// written in one step, and can be taken back.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "authoring/designs.h"
#include "authoring/field_texts.h"
#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct Addition {
    std::optional<std::string> json = {};  ///< a record's file, or "-"; then no fields are given
    std::vector<Assignment> fields = {};   ///< what isn't given is left to the record's constructor
    bool keepPlace = false;                ///< when the id is stored already, change only the fields that are given
    bool startOver = false;                ///< replace a list that isn't valid
};

struct FieldChange {
    std::string reference;
    std::vector<std::string> assignments = {};
    std::vector<std::string> unset = {};
    bool create = false;  ///< the reference is a whole id, and the design is added when there is none
};

/// Puts a design first, replacing one with its id, and prints the id.
Outcome<Done> add(const Addition& addition, const Platform& platform, Console& console);
/// Changes fields in place.
Outcome<Done> set(const FieldChange& change, const Platform& platform, Console& console);
Outcome<Done> front(const std::string& reference, const Platform& platform, Console& console);
/// Removes all of them, or none when one isn't found. Prints what was removed.
Outcome<Done> remove(const std::vector<std::string>& references, const Platform& platform, Console& console);
/// Takes back the last change, and prints what that was.
Outcome<Done> undo(const Platform& platform, Console& console);

/// For how long to wait for the lock; says on the console which process holds it.
LockWait patience(Console& console);
/// Opens the designs for a change; the person waits meanwhile.
Outcome<OpenDesigns> openForChange(const Platform& platform, Console& console);
/// Says on the console what won't show as meant.
void warnAbout(const WidgetSpec& spec, Console& console);
/// Says on the console what the person should know about a change that was made.
Outcome<Done> report(const Saved& saved, Console& console);
/// Reads a design from a record's file, or "-". Says on the console what isn't kept, and what won't show.
Outcome<WidgetSpec> readRecord(const std::string& file, const Platform& platform, Console& console);

}  // namespace orvel::tools
