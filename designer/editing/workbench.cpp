#include "designer/editing/workbench.h"

#include <algorithm>

#include "authoring/designs.h"
#include "authoring/history.h"
#include "designer/editing/kept_base.h"
#include "designer/editing/merge.h"
#include "model/store_files.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/unicode.h"

namespace orvel::designer {
namespace {

// A page waits for the answer.
const LockWait patience{.most = std::chrono::seconds(2), .silent = std::chrono::seconds(2)};

bool isSame(const WidgetSpec& a, const WidgetSpec& b) {
    return WidgetSpecJSON::encode(a) == WidgetSpecJSON::encode(b);
}

Outcome<std::size_t> indexOf(const std::string& id, const std::vector<WidgetSpec>& specs) {
    const auto found = std::ranges::find_if(
        specs, [&](const WidgetSpec& spec) { return unicode::canonicallyEquivalent(spec.id, id); });
    if (found == specs.end())
        return Failure{"no design has the id " + unicode::onOneLine(id), Failure::Cause::request, "design"};
    return static_cast<std::size_t>(found - specs.begin());
}

}  // namespace

Workbench::Workbench(const Platform& platform) : platform_(platform), draft_(blank()) {
    readStore();
    openAny(0);
    followPending();
}

bool Workbench::isUnsaved() const {
    if (base_) return !isSame(draft_, *base_);
    WidgetSpec untouched = blank();
    untouched.id = draft_.id;
    untouched.createdAt = draft_.createdAt;
    return !isSame(draft_, untouched);
}

Conflict Workbench::conflict() const {
    if (!base_ || !isUnsaved() || !trouble_.empty()) return Conflict::none;
    const WidgetSpec* const now = stored(base_->id);
    if (!now) return Conflict::removed;
    return isSame(*now, *base_) || isSame(*now, draft_) ? Conflict::none : Conflict::changed;
}

void Workbench::look() {
    const auto before = base_ ? indexOf(base_->id, specs_) : Outcome<std::size_t>(0);
    readStore();
    if (trouble_.empty() && base_ && !isUnsaved() && !stored(base_->id)) openAny(before ? *before : 0);
    followPending();
    if (trouble_.empty()) followStored();
}

// Where both changed the same field, a conflict stays, for somebody to decide.
void Workbench::followStored() {
    const WidgetSpec* const now = base_ ? stored(base_->id) : nullptr;
    if (!now || isSame(*now, *base_)) return;
    auto both = merged(*base_, draft_, *now);
    if (!both) return;
    changeDraft(*std::move(both));
    base_ = *now;
    isBaseKept_ = false;
}

std::vector<FieldRefusal> Workbench::type(const std::vector<TypedField>& fields) {
    WidgetSpec changed = draft_;
    auto refusals = typeInto(changed, fields, platform_);
    changeDraft(std::move(changed));
    return refusals;
}

void Workbench::changeDraft(WidgetSpec changed) {
    revisions_.change(draft_, changed);
    draft_ = std::move(changed);
}

Outcome<Done> Workbench::keep() {
    if (!isUnsaved()) return kept_ ? forgetPending() : Outcome<Done>(Done{});
    if (kept_ && isSame(*kept_, draft_) && isBaseKept_) return Done{};
    const auto lock = lockStore(platform_, patience);
    if (!lock) return lock.failure();
    const auto written = StoreFiles::writePending(draft_, platform_);
    if (!written) return Failure{written.failure().message()};
    kept_ = draft_;
    // After the draft: what both have changed alike is no conflict, should this be the last thing that the process
    // does.
    if (!isBaseKept_) keepBase(base_, platform_);
    isBaseKept_ = true;
    return Done{};
}

Outcome<Done> Workbench::startNew(Unsaved unsaved) {
    const auto left = leave(unsaved);
    if (left) open(blank(), std::nullopt);
    return left;
}

Outcome<Done> Workbench::edit(const std::string& id, Unsaved unsaved) {
    if (base_ && base_->id == id) return Done{};
    const auto found = indexOf(id, specs_);
    if (!found) return found.failure();
    const auto left = leave(unsaved);
    if (left) open(specs_[*found], specs_[*found]);
    return left;
}

Outcome<Done> Workbench::take(WidgetSpec spec, Unsaved unsaved) {
    const auto left = leave(unsaved);
    if (!left) return left;
    const WidgetSpec* const now = stored(spec.id);
    open(std::move(spec), now ? std::optional(*now) : std::nullopt);
    return Done{};
}

Outcome<Done> Workbench::save(bool inFront) {
    if (const auto kept = keep(); !kept) return kept;
    WidgetSpec wanted = draft_;
    const auto saved = change([&](const std::vector<WidgetSpec>& specs) -> Outcome<Change> {
        const auto index = indexOf(draft_.id, specs);
        if (index && base_) {
            const auto both = merged(*base_, draft_, specs[*index]);
            if (!both)
                return Failure{"this design was changed by another program since you began", Failure::Cause::request,
                               conflictField};
            wanted = *both;
        }
        auto change = index && !inFront ? Changes::replacing(specs, *index, wanted) : Changes::adding(specs, wanted);
        if (change && isUnsaved()) change->accepted = draft_;
        return change;
    });
    if (!saved) return saved;
    changeDraft(wanted);
    base_ = std::move(wanted);
    return forgetPending();
}

void Workbench::keepMine() {
    const WidgetSpec* const now = base_ ? stored(base_->id) : nullptr;
    base_ = now ? std::optional(*now) : std::nullopt;
    isBaseKept_ = false;
    changeDraft(draft_);
}

Outcome<Done> Workbench::takeTheirs() {
    const auto forgotten = forgetPending();
    if (forgotten) openStored(draft_.id);
    return forgotten;
}

Outcome<Done> Workbench::duplicate(Unsaved unsaved) {
    if (!base_) return Failure{"a design that isn't stored yet can't be duplicated; save it first"};
    const std::string id = base_->id;
    if (const auto left = leave(unsaved); !left) return left;
    std::optional<WidgetSpec> copy;
    const auto changed = change([&](const std::vector<WidgetSpec>& specs) -> Outcome<Change> {
        const auto index = indexOf(id, specs);
        if (!index) return index.failure();
        copy = specs[*index];
        copy->id = platform_.identities.uuid();
        copy->createdAt = platform_.clock.now();
        Change change;
        change.what = "duplicated " + Changes::nameOf(specs[*index]);
        change.inserted.push_back({*index + 1, *copy});
        return change;
    });
    if (changed) open(*copy, *copy);
    return changed;
}

Outcome<Done> Workbench::removeDraft() {
    std::size_t index = 0;
    if (base_ && stored(base_->id)) {
        const auto changed = change([&](const std::vector<WidgetSpec>& specs) -> Outcome<Change> {
            const auto found = indexOf(base_->id, specs);
            if (!found) return found.failure();
            index = *found;
            return Changes::removing(specs, {index});
        });
        if (!changed) return changed;
    }
    const auto forgotten = forgetPending();
    if (forgotten) openAny(index);
    return forgotten;
}

Outcome<Done> Workbench::move(const std::string& id, std::size_t to) {
    return change([&](const std::vector<WidgetSpec>& specs) -> Outcome<Change> {
        const auto index = indexOf(id, specs);
        if (!index) return index.failure();
        return Changes::moving(specs, *index, std::min(to, specs.size() - 1));
    });
}

Outcome<Done> Workbench::undo() {
    if (const auto kept = keep(); !kept) return kept;
    {
        const auto designs = openDesigns(platform_, patience);
        if (!designs) return designs.failure();
        const auto undone = orvel::undo(*designs, platform_);
        if (!undone) return undone.failure();
    }
    look();
    return Done{};
}

void Workbench::readStore() {
    auto specs = readDesigns(platform_);
    trouble_ = specs ? "" : specs.failure().reason;
    specs_ = specs ? *std::move(specs) : std::vector<WidgetSpec>();
    undoable_.reset();
    if (const auto history = History::read(platform_))
        if (const auto last = History::last(*history); last && *last) undoable_ = (*last)->what;
}

void Workbench::followPending() {
    const auto pending = StoreFiles::readPending(platform_);
    if (pending) {
        if (kept_ && isSame(*kept_, *pending)) return;
        kept_ = *pending;
        if (isSame(draft_, *pending)) return;
        auto base = readBase(*pending, platform_);
        if (const WidgetSpec* const now = stored(pending->id); !base && now) base = *now;
        open(*pending, std::move(base));
        kept_ = *pending;
        isBaseKept_ = true;
    } else if (kept_ && pending.failure().isMissing()) {
        kept_.reset();
        openStored(draft_.id);
    }
}

void Workbench::open(WidgetSpec spec, std::optional<WidgetSpec> base) {
    draft_ = std::move(spec);
    base_ = std::move(base);
    kept_.reset();
    isBaseKept_ = false;
    revisions_.open();
}

void Workbench::openStored(const std::string& id) {
    const WidgetSpec* const now = stored(id);
    return now ? open(*now, *now) : openAny(0);
}

void Workbench::openAny(std::size_t near) {
    if (specs_.empty()) return open(blank(), std::nullopt);
    const WidgetSpec& spec = specs_[std::min(near, specs_.size() - 1)];
    open(spec, spec);
}

WidgetSpec Workbench::blank() const {
    return WidgetSpec({.title = "", .kind = WidgetKind::metric}, platform_);
}

const WidgetSpec* Workbench::stored(const std::string& id) const {
    const auto index = indexOf(id, specs_);
    return index ? &specs_[*index] : nullptr;
}

Outcome<Done> Workbench::leave(Unsaved unsaved) {
    if (!isUnsaved()) return Done{};
    if (unsaved == Unsaved::refuse)
        return Failure{"what you typed isn't saved yet", Failure::Cause::request, unsavedField};
    return forgetPending();
}

Outcome<Done> Workbench::forgetPending() {
    const auto lock = lockStore(platform_, patience);
    if (!lock) return lock.failure();
    const auto removed = StoreFiles::removePending(platform_);
    if (!removed && !removed.failure().isMissing()) return Failure{removed.failure().message()};
    keepBase(std::nullopt, platform_);
    kept_.reset();
    isBaseKept_ = false;
    return Done{};
}

Outcome<Done> Workbench::change(FunctionRef<Outcome<Change>(const std::vector<WidgetSpec>&)> wanted) {
    {
        const auto designs = openDesigns(platform_, patience);
        if (!designs) return designs.failure();
        const auto change = wanted(designs->specs);
        if (!change) return change.failure();
        const auto saved = saveChange(*designs, *change, platform_);
        if (!saved) return saved.failure();
    }
    readStore();
    return Done{};
}

}  // namespace orvel::designer
