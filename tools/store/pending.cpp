#include "tools/store/pending.h"

#include "model/store_files.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/core/input_output.h"
#include "tools/store/operations.h"
#include "views/card_text.h"

namespace orvel::tools {
namespace {

Outcome<Done> clear(const Platform& platform) {
    const auto removed = StoreFiles::removePending(platform);
    if (!removed && !removed.failure().isMissing()) return Failure{removed.failure().message()};
    return Done{};
}

}  // namespace

Outcome<Done> showPending(bool json, const Platform& platform, Console& console) {
    const auto spec = StoreFiles::readPending(platform);
    if (!spec && !spec.failure().isMissing()) return Failure{spec.failure().message()};
    if (!spec && !json) return Failure{sentence("no design is pending")};
    if (json) return printJson(spec ? WidgetSpecJSON::encode(*spec) : "null", toTranslate("the design"), console);
    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    console.out << cardText(*spec, localizer, platform) << '\n';
    return Done{};
}

Outcome<Done> setPending(const std::string& file, const Platform& platform, Console& console) {
    const auto spec = readRecord(file, platform, console);
    if (!spec) return spec.failure();
    const auto lock = lockStore(platform, patience(console));
    if (!lock) return lock.failure();
    const auto written = StoreFiles::writePending(*spec, platform);
    if (!written) return Failure{written.failure().message()};
    if (written->unsynced) return doneForNow(written->unsynced->message());
    return Done{};
}

Outcome<Done> clearPending(const Platform& platform, Console& console) {
    const auto lock = lockStore(platform, patience(console));
    if (!lock) return lock.failure();
    return clear(platform);
}

Outcome<Done> acceptPending(const Platform& platform, Console& console) {
    const auto designs = openForChange(platform, console);
    if (!designs) return designs.failure();
    const auto spec = StoreFiles::readPending(platform);
    if (!spec) return Failure{spec.failure().isMissing() ? sentence("no design is pending") : spec.failure().message()};
    auto change = Changes::adding(designs->specs, *spec);
    if (!change) return change.failure();
    change->accepted = *spec;
    const auto saved = saveChange(*designs, *change, platform);
    if (!saved) return saved.failure();
    // What may be lost in the list stays pending.
    const auto reported = report(*saved, console);
    const auto cleared = reported ? clear(platform) : Outcome<Done>(Done{});
    if (!cleared) {
        withdraw(*designs, *saved, platform);
        return cleared;
    }
    const auto printed = printAfterwards(spec->id, console);
    return reported ? printed : reported;
}

}  // namespace orvel::tools
