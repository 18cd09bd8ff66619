// Opens and changes the stored designs. Changes are made under the lock of the store's folder and can be taken back
// (history.h). A list that can't be read is never replaced.
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
    bool startsOver = false;  ///< the file isn't a list of designs; a change keeps a copy and begins a new list
};

enum class WhenInvalid { refuse, startOver };

/// What the person should know about a change that was made, in one line each.
struct Saved {
    bool wroteAnything = true;                  ///< false: the list was the same already
    std::optional<std::string> keptAs = {};     ///< the path of the file that was replaced although it didn't load
    std::optional<std::string> cantUndo = {};   ///< why the change can't be taken back
    std::optional<std::string> mayBeLost = {};  ///< why a loss of power may still bring the old list back
};

/// The lock of the store's folder. One that isn't free in time is a failure that says who holds it.
Outcome<std::unique_ptr<FolderLock>> lockStore(const Platform& platform, const LockWait& wait = {});

/// The designs for reading. A missing file has none; one that doesn't load is a failure.
Outcome<std::vector<WidgetSpec>> readDesigns(const Platform& platform);

/// Opens the designs for a change. A missing file has none. For a file that was read but isn't a list of designs,
/// `whenInvalid` decides: fail with the cause `content`, or start over. A file that can't be read is always a failure.
Outcome<OpenDesigns> openDesigns(const Platform& platform, const LockWait& wait = {},
                                 WhenInvalid whenInvalid = WhenInvalid::refuse);

/// Whether a change enters the history: a person's steps do; a program's regular updates would only bury them.
enum class InHistory { yes, no };

/// Makes the change in the designs that were opened, and enters it into the history. An empty change writes nothing,
/// and a failed one changes nothing.
Outcome<Saved> saveChange(const OpenDesigns& designs, const Change& change, const Platform& platform,
                          InHistory inHistory = InHistory::yes);

/// Puts the designs back as they were opened, and forgets the change: for an operation whose next step failed.
void withdraw(const OpenDesigns& designs, const Saved& saved, const Platform& platform);

struct Undone {
    std::string what;  ///< what the change had done, as Change::what
    Saved saved;
    std::optional<std::string> pendingStays = {};  ///< why the pending design that was accepted isn't back
};

/// Takes the last change back, and forgets it. What others have changed since stays; where that is impossible, it fails
/// and changes nothing.
Outcome<Undone> undo(const OpenDesigns& designs, const Platform& platform);

}  // namespace orvel
