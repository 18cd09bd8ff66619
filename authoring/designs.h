// The stored designs for whoever changes them. Changes happen under the lock of the store's folder, can be taken back
// (history.h), and replace only a list that was read whole: one that can't be read stays as it is.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "authoring/change.h"
#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct OpenDesigns {
    std::unique_ptr<FolderLock> lock;  ///< the folder's, for as long as this lives
    std::vector<WidgetSpec> specs;
    bool startsOver = false;  ///< the file is no list of designs; a change keeps it beside and begins with none
};

enum class WhenInvalid { refuse, startOver };

/// What a change that was made entails; a line each for the person.
struct Saved {
    bool wroteAnything = true;                  ///< otherwise all was as wanted already
    std::optional<std::string> keptAs = {};     ///< the path of the file that was replaced although it didn't load
    std::optional<std::string> cantUndo = {};   ///< why the change can't be taken back
    std::optional<std::string> mayBeLost = {};  ///< why a loss of power may yet bring the old list back
};

/// The lock of the store's folder. One that isn't free in time is a failure that says who holds it.
Outcome<std::unique_ptr<FolderLock>> lockStore(const Platform& platform, const LockWait& wait = {});

/// The designs for reading. A missing file has none; one that doesn't load is a failure.
Outcome<std::vector<WidgetSpec>> readDesigns(const Platform& platform);

/// The designs for a change. A missing file has none. A file that was read whole and is no list of designs is a failure
/// whose cause is its content, or is started over. One that can't be read is a failure in any case.
Outcome<OpenDesigns> openDesigns(const Platform& platform, const LockWait& wait = {},
                                 WhenInvalid whenInvalid = WhenInvalid::refuse);

/// Whether the history gets a change: a person's steps do, what a program repeats by itself would only bury them.
enum class InHistory { yes, no };

/// Makes the change of the designs that were opened, and enters it into the history. A change that is empty writes
/// nothing, and one that fails leaves nothing.
Outcome<Saved> saveChange(const OpenDesigns& designs, const Change& change, const Platform& platform,
                          InHistory inHistory = InHistory::yes);

/// Puts the designs back as they were opened, and forgets the change: for an operation whose next step failed.
void withdraw(const OpenDesigns& designs, const Saved& saved, const Platform& platform);

struct Undone {
    std::string what;  ///< what the change had done, as Change::what
    Saved saved;
    std::optional<std::string> pendingStays = {};  ///< why the pending design that was accepted isn't back
};

/// Takes the last change back, and forgets it. Designs that others changed since aren't touched; where that is
/// impossible, it fails and changes nothing.
Outcome<Undone> undo(const OpenDesigns& designs, const Platform& platform);

}  // namespace orvel
