#include "tools/store/operations.h"

#include <algorithm>
#include <set>

#include "authoring/new_design.h"
#include "authoring/references.h"
#include "authoring/warnings.h"
#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"

namespace orvel::tools {
namespace {

void warnOf(const std::vector<Warning>& found, Console& console) {
    for (const Warning& each : found) warn(each.text, console);
}

Outcome<WidgetSpec> fromFields(const std::vector<Assignment>& given, const Platform& platform, Console& console) {
    WidgetSpec::Fields fields{.title = "", .kind = {}};
    const auto losses = assign(given, fields, platform);
    if (!losses) return losses.failure();
    warnOf(*losses, console);
    return makeDesign(std::move(fields), platform).spec;
}

Outcome<std::vector<Assignment>> takenApart(const std::vector<std::string>& texts) {
    std::vector<Assignment> assignments;
    for (const std::string& text : texts) {
        auto taken = assignment(text);
        if (!taken) return taken.failure();
        assignments.push_back(*std::move(taken));
    }
    return assignments;
}

bool isConfirmed(const std::string& question, Console& console) {
    console.err << "orvel: " << sentence("{0} [y/N]", question) << ' ' << std::flush;
    std::string answer;
    std::getline(console.in, answer);
    // In the person's language, as the question tells, and in English.
    return answer == "y" || answer == "Y" || answer == "yes" || answer == sentence("y") || answer == sentence("yes");
}

// A list that isn't valid is replaced only when the person agrees.
Outcome<OpenDesigns> openForAdding(bool startOver, const Platform& platform, Console& console) {
    const LockWait wait = patience(console);
    auto designs = openDesigns(platform, wait, startOver ? WhenInvalid::startOver : WhenInvalid::refuse);
    if (designs || designs.failure().cause != Failure::Cause::content) return designs;
    const std::string& reason = designs.failure().reason;
    if (console.isInteractive &&
        isConfirmed(sentence("{0}. Keep that file beside, and begin a new list?", reason), console))
        return openDesigns(platform, wait, WhenInvalid::startOver);
    return Failure{clauses(reason, sentence("--start-over keeps the file beside and begins a new list")),
                   Failure::Cause::content};
}

Outcome<Done> saveOne(const OpenDesigns& designs, const Outcome<Change>& change, const Platform& platform,
                      Console& console) {
    if (!change) return change.failure();
    const auto saved = saveChange(designs, *change, platform);
    if (!saved) return saved.failure();
    return report(*saved, console);
}

// Prints the id of what was stored.
Outcome<Done> storeOne(const OpenDesigns& designs, const Outcome<Change>& change, const Platform& platform,
                       Console& console) {
    if (!change) return change.failure();
    const auto saved = saveChange(designs, *change, platform);
    if (!saved) return saved.failure();
    const auto printed = printAfterwards(change->inserted.front().spec.id, console);
    const auto reported = report(*saved, console);
    return reported ? printed : reported;
}

Outcome<Done> addInFront(const WidgetSpec& spec, const OpenDesigns& designs, const Platform& platform,
                         Console& console) {
    auto stored = storeOne(designs, Changes::adding(designs.specs, spec), platform, console);
    if (stored && console.columns)
        say(sentence("it is the design that is shown; orvel desktop puts it on the desktop, orvel show prints it here"),
            console);
    return stored;
}

Failure incompleteNew(const std::string& id, const std::vector<std::string_view>& missing) {
    return {
        sentence("no design has the id {0} yet, and a new one needs {1}", unicode::onOneLine(id), conjunction(missing)),
        Failure::Cause::request};
}

Outcome<Done> addInPlace(const Addition& addition, const Platform& platform, Console& console) {
    const auto given = std::ranges::find(addition.fields, typedName(WidgetField::id), &Assignment::field);
    const auto designs = openForAdding(addition.startOver, platform, console);
    if (!designs) return designs.failure();
    const auto index = findWithId(designs->specs, given->value);
    if (!index) return index.failure();
    if (!*index) {
        const auto missing = missingForNew(addition.fields);
        if (!missing.empty()) return incompleteNew(given->value, missing);
        const auto spec = fromFields(addition.fields, platform, console);
        if (!spec) return spec.failure();
        warnAbout(*spec, console);
        return addInFront(*spec, *designs, platform, console);
    }
    WidgetSpec spec = designs->specs[**index];
    const std::string id = spec.id;
    const auto losses = assign(addition.fields, spec, platform);
    if (!losses) return losses.failure();
    spec.id = id;  // keeps its spelling
    warnOf(*losses, console);
    warnAbout(spec, console);
    return storeOne(*designs, Changes::replacing(designs->specs, **index, std::move(spec)), platform, console);
}

Outcome<Done> create(const FieldChange& change, std::vector<Assignment> fields, const OpenDesigns& designs,
                     const Platform& platform, Console& console) {
    if (const auto missing = missingForNew(fields); !missing.empty()) return incompleteNew(change.reference, missing);
    fields.push_back({"id", change.reference});
    auto spec = fromFields(fields, platform, console);
    if (!spec) return spec.failure();
    for (const std::string& field : change.unset)
        if (const auto done = unset(field, *spec); !done) return done.failure();
    warnAbout(*spec, console);
    return saveOne(designs, Changes::adding(designs.specs, *std::move(spec)), platform, console);
}

}  // namespace

LockWait patience(Console& console) {
    return {.most = std::chrono::duration<double>(console.lockWait), .tell = [&console](const std::string& holder) {
                say(sentence("waiting for {0}, which is changing the store", holder), console);
            }};
}

Outcome<OpenDesigns> openForChange(const Platform& platform, Console& console) {
    return openDesigns(platform, patience(console));
}

void warnAbout(const WidgetSpec& spec, Console& console) {
    const Symbols symbols;
    warnOf(warnings(spec, symbols), console);
}

Outcome<Done> report(const Saved& saved, Console& console) {
    if (saved.keptAs) say(sentence("the list that didn't load is kept as {0}", *saved.keptAs), console);
    if (saved.cantUndo) warn(sentence("orvel undo can't take this back: {0}", *saved.cantUndo), console);
    if (saved.mayBeLost) return doneForNow(*saved.mayBeLost);
    return Done{};
}

Outcome<WidgetSpec> readRecord(const std::string& file, const Platform& platform, Console& console) {
    auto text = readInput(file, console);
    if (!text) return text.failure();
    auto design = readDesign(*std::move(text), platform);
    if (!design) return Failure{displayName(file) + ":" + design.failure().reason};
    warnOf(design->losses, console);
    warnAbout(design->spec, console);
    return std::move(design->spec);
}

Outcome<Done> add(const Addition& addition, const Platform& platform, Console& console) {
    if (addition.keepPlace) return addInPlace(addition, platform, console);
    const auto spec =
        addition.json ? readRecord(*addition.json, platform, console) : fromFields(addition.fields, platform, console);
    if (!spec) return spec.failure();
    if (!addition.json) warnAbout(*spec, console);
    const auto designs = openForAdding(addition.startOver, platform, console);
    if (!designs) return designs.failure();
    return addInFront(*spec, *designs, platform, console);
}

Outcome<Done> set(const FieldChange& change, const Platform& platform, Console& console) {
    const auto assignments = takenApart(change.assignments);
    if (!assignments) return assignments.failure();
    const auto designs = openForChange(platform, console);
    if (!designs) return designs.failure();

    std::optional<std::size_t> index;
    if (change.create) {
        const auto found = findWithId(designs->specs, change.reference);
        if (!found) return found.failure();
        if (!*found) return create(change, *assignments, *designs, platform, console);
        index = *found;
    } else {
        const auto found = findOne(designs->specs, change.reference);
        if (!found) return found.failure();
        index = *found;
    }
    WidgetSpec spec = designs->specs[*index];
    for (const std::string& field : change.unset)
        if (const auto done = unset(field, spec); !done) return done.failure();
    const auto losses = assign(*assignments, spec, platform);
    if (!losses) return losses.failure();
    const auto replacing = Changes::replacing(designs->specs, *index, spec);
    if (replacing) {
        warnOf(*losses, console);
        warnAbout(spec, console);
    }
    return saveOne(*designs, replacing, platform, console);
}

Outcome<Done> front(const std::string& reference, const Platform& platform, Console& console) {
    const auto designs = openForChange(platform, console);
    if (!designs) return designs.failure();
    const auto index = findOne(designs->specs, reference);
    if (!index) return index.failure();
    return saveOne(*designs, Changes::movingToFront(designs->specs, *index), platform, console);
}

Outcome<Done> remove(const std::vector<std::string>& references, const Platform& platform, Console& console) {
    const auto designs = openForChange(platform, console);
    if (!designs) return designs.failure();
    std::set<std::size_t> chosen;
    for (const std::string& reference : references) {
        const auto found = findOne(designs->specs, reference);
        if (!found) return found.failure();
        chosen.insert(*found);
    }
    const Change change = Changes::removing(designs->specs, chosen);
    const auto saved = saveChange(*designs, change, platform);
    if (!saved) return saved.failure();
    std::string line = change.what;
    if (!saved->cantUndo)
        line = clauses(line, counted("orvel undo brings it back", "orvel undo brings them back", chosen.size()));
    const auto printed = printAfterwards(line, console);
    const auto reported = report(*saved, console);
    return reported ? printed : reported;
}

Outcome<Done> undo(const Platform& platform, Console& console) {
    const auto designs = openForChange(platform, console);
    if (!designs) return designs.failure();
    const auto undone = orvel::undo(*designs, platform);
    if (!undone) return undone.failure();
    const auto printed = printAfterwards(sentence("took back: {0}", undone->what), console);
    if (undone->pendingStays) warn(sentence("the design isn't pending again: {0}", *undone->pendingStays), console);
    const auto reported = report(undone->saved, console);
    return reported ? printed : reported;
}

}  // namespace orvel::tools
