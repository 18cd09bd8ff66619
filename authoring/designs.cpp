#include "authoring/designs.h"

#include <utility>

#include "authoring/history.h"
#include "authoring/keep_beside.h"
#include "authoring/number_text.h"
#include "model/store_files.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

std::string unchanged(const std::string& why) {
    return clauses(why, sentence("nothing has been changed"));
}

// The history's text before an entry was made, so that the entry can be withdrawn.
Outcome<std::string> enter(const Change& change, const Platform& platform) {
    auto before = History::read(platform);
    if (!before) return before.failure();
    const auto after = History::with(change, *before);
    if (!after) return Failure{sentence("the change can't be written as JSON")};
    const auto written = History::write(*after, platform);
    if (!written) return written.failure();
    return *std::move(before);
}

Outcome<Saved> write(const std::vector<WidgetSpec>& specs, const Platform& platform) {
    const auto written = StoreFiles::writeList(specs, platform);
    if (!written) return Failure{written.failure().message()};
    Saved saved;
    if (written->unsynced) saved.mayBeLost = written->unsynced->message();
    return saved;
}

}  // namespace

Outcome<std::unique_ptr<FolderLock>> lockStore(const Platform& platform, const LockWait& wait) {
    const auto folder = StoreFiles::folder(platform);
    std::string holder;
    LockWait heard = wait;
    heard.tell = [&](const std::string& who) {
        holder = who;
        if (wait.tell && wait.most > wait.silent) wait.tell(who);
    };
    auto lock = platform.files.lock(folder, heard);
    if (lock) return *std::move(lock);
    if (lock.failure().code != std::errc::timed_out) return Failure{folder.string() + ": " + lock.failure().message()};
    return Failure{unchanged(folder.string() + ": " +
                             sentence("{0} still holds the lock after {1} s", holder, inShort(wait.most.count())))};
}

Outcome<std::vector<WidgetSpec>> readDesigns(const Platform& platform) {
    auto specs = StoreFiles::readList(platform);
    if (specs) return *std::move(specs);
    if (specs.failure().isMissing()) return std::vector<WidgetSpec>();
    return Failure{specs.failure().message()};
}

Outcome<OpenDesigns> openDesigns(const Platform& platform, const LockWait& wait, WhenInvalid whenInvalid) {
    auto lock = lockStore(platform, wait);
    if (!lock) return lock.failure();

    OpenDesigns designs{*std::move(lock), {}};
    auto specs = StoreFiles::readList(platform);
    if (specs) {
        designs.specs = *std::move(specs);
    } else if (specs.failure().isInvalid()) {
        designs.startsOver = whenInvalid == WhenInvalid::startOver;
        if (!designs.startsOver) return Failure{unchanged(specs.failure().message()), Failure::Cause::content};
    } else if (!specs.failure().isMissing()) {
        return Failure{unchanged(specs.failure().message())};
    }
    return designs;
}

Outcome<Saved> saveChange(const OpenDesigns& designs, const Change& change, const Platform& platform,
                          InHistory inHistory) {
    if (change.isEmpty() && !designs.startsOver) return Saved{.wroteAnything = false};
    if (inHistory == InHistory::no) return write(change.appliedTo(designs.specs), platform);

    std::optional<std::string> kept;
    if (designs.startsOver) {
        auto copied = keepBeside(StoreFiles::list(platform), Kept::invalid, platform);
        if (!copied) return copied.failure();
        kept = *std::move(copied);
    }
    // The history is written first, so that after a loss of power a removed design is in the list or in the history.
    const auto historyBefore = enter(change, platform);
    auto saved = write(change.appliedTo(designs.specs), platform);
    if (!saved) {
        if (historyBefore) (void)History::write(*historyBefore, platform);
        if (kept) (void)platform.files.remove(*kept);
        return saved;
    }
    saved->keptAs = std::move(kept);
    if (!historyBefore) saved->cantUndo = historyBefore.failure().reason;
    return saved;
}

void withdraw(const OpenDesigns& designs, const Saved& saved, const Platform& platform) {
    if (!saved.wroteAnything || !StoreFiles::writeList(designs.specs, platform) || saved.cantUndo) return;
    if (const auto history = History::read(platform)) (void)History::write(History::withoutLast(*history), platform);
}

Outcome<Undone> undo(const OpenDesigns& designs, const Platform& platform) {
    const auto history = History::read(platform);
    if (!history) return history.failure();
    const auto change = History::last(*history);
    if (!change) return Failure{History::file(platform).string() + ": " + change.failure().reason};
    if (!*change) return Failure{sentence("there is no change to take back")};
    const std::string what = (*change)->what;

    auto specs = Changes::takenBack(**change, designs.specs);
    if (!specs) return Failure{unchanged(sentence("can't take back \"{0}\": {1}", what, specs.failure().reason))};
    if (!*specs) {
        (void)History::write(History::withoutLast(*history), platform);
        return Failure{
            sentence("\"{0}\" has been taken back already; the next undo takes back the change before it", what)};
    }
    auto saved = write(**specs, platform);
    if (!saved) return saved.failure();

    Undone undone{what, *std::move(saved)};
    if (const auto& accepted = (*change)->accepted) {
        const auto pending = StoreFiles::readPending(platform);
        if (pending ? *pending != *accepted : !pending.failure().isMissing())
            undone.pendingStays = sentence("another design is pending by now");
        else if (const auto written = StoreFiles::writePending(*accepted, platform); !written)
            undone.pendingStays = written.failure().message();
    }
    // If this fails, the next undo finds that the change is taken back already.
    (void)History::write(History::withoutLast(*history), platform);
    return undone;
}

}  // namespace orvel
