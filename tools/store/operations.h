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
    bool keepPlace = false;                ///< of a design with the id that is given, change only what is given
    bool startOver = false;                ///< also in place of a list that doesn't load
};

struct FieldChange {
    std::string reference;
    std::vector<std::string> assignments = {};
    std::vector<std::string> unset = {};
    bool create = false;  ///< the reference is a whole id, and a design that isn't there is added
};

/// Puts a design first, in place of one with its id, and prints the id.
Outcome<Done> add(const Addition& addition, const Platform& platform, Console& console);
/// Changes fields in place.
Outcome<Done> set(const FieldChange& change, const Platform& platform, Console& console);
Outcome<Done> front(const std::string& reference, const Platform& platform, Console& console);
/// All of them, or none when one isn't found. Prints what it removed.
Outcome<Done> remove(const std::vector<std::string>& references, const Platform& platform, Console& console);
/// Takes back the last change, and prints what that was.
Outcome<Done> undo(const Platform& platform, Console& console);

/// Says on the console whom it waits for.
LockWait patience(Console& console);
/// The designs for a change that somebody waits for.
Outcome<OpenDesigns> openForChange(const Platform& platform, Console& console);
/// Says on the console what won't show as meant.
void warnAbout(const WidgetSpec& spec, Console& console);
/// Says on the console what a change that was made entails.
Outcome<Done> report(const Saved& saved, Console& console);
/// A design from a record's file, or "-"; the console is told what the record doesn't keep, and what won't show.
Outcome<WidgetSpec> readRecord(const std::string& file, const Platform& platform, Console& console);

}  // namespace orvel::tools
