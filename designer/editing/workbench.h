// The design that is being edited, and the store around it. What was typed and isn't saved yet is the store's pending
// design; the stored design that it began from is kept beside the history, so that a change by somebody else is noticed
// even after a crash. No pages and no pictures here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "authoring/change.h"
#include "designer/editing/revisions.h"
#include "designer/editing/typed_fields.h"
#include "model/widget_spec.h"
#include "platform/foundation/function_ref.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// What else happened to the stored design since its editing began.
enum class Conflict { none, changed, removed };

/// What to do with what was typed, when another design is to be edited.
enum class Unsaved { refuse, discard };

/// An operation refused because of what was typed and isn't saved, or of a conflict that somebody has to decide.
inline constexpr const char* unsavedField = "unsaved";
inline constexpr const char* conflictField = "conflict";

class Workbench {
public:
    /// Reads store and pending design.
    explicit Workbench(const Platform& platform);

    const std::vector<WidgetSpec>& designs() const { return specs_; }
    /// Why the store's list doesn't load; empty when it does.
    const std::string& trouble() const { return trouble_; }
    const WidgetSpec& draft() const { return draft_; }
    bool isNew() const { return !base_; }
    /// Whether saving would change anything.
    bool isUnsaved() const;
    Conflict conflict() const;
    const Revisions& revisions() const { return revisions_; }
    /// What `undo` would take back: removed "Active users" (6F1A).
    const std::optional<std::string>& undoable() const { return undoable_; }

    /// Reads the files anew, and follows them where nothing typed would be lost: what a feed or a script changes in
    /// other fields than those typed into joins the draft.
    void look();

    /// Changes the draft. The fields that can't be as they were typed stay as they were. `keep` makes it safe.
    std::vector<FieldRefusal> type(const std::vector<TypedField>& fields);
    /// Keeps the draft as the pending design, when it changed since.
    Outcome<Done> keep();

    Outcome<Done> startNew(Unsaved unsaved);
    Outcome<Done> edit(const std::string& id, Unsaved unsaved);
    /// Begins with one that isn't typed but given whole; one that is stored by its id is edited so.
    Outcome<Done> take(WidgetSpec spec, Unsaved unsaved);
    /// In its place; a new one, and where that is asked for any one, in front.
    Outcome<Done> save(bool inFront);
    /// A conflict decided: what was typed shall be saved over the other change; or the stored design is taken.
    void keepMine();
    Outcome<Done> takeTheirs();

    /// A copy behind the stored design, which is then edited.
    Outcome<Done> duplicate(Unsaved unsaved);
    /// The design that is edited, stored or not.
    Outcome<Done> removeDraft();
    Outcome<Done> move(const std::string& id, std::size_t to);
    Outcome<Done> undo();

private:
    void readStore();
    void followPending();
    void followStored();
    void open(WidgetSpec spec, std::optional<WidgetSpec> base);
    void changeDraft(WidgetSpec changed);
    void openStored(const std::string& id);
    void openAny(std::size_t near);
    WidgetSpec blank() const;
    const WidgetSpec* stored(const std::string& id) const;
    Outcome<Done> leave(Unsaved unsaved);
    Outcome<Done> forgetPending();
    Outcome<Done> change(FunctionRef<Outcome<Change>(const std::vector<WidgetSpec>&)> wanted);

    const Platform& platform_;
    std::vector<WidgetSpec> specs_;
    std::string trouble_;
    WidgetSpec draft_;
    std::optional<WidgetSpec> base_;
    std::optional<WidgetSpec> kept_;  ///< the pending design, as far as this knows
    bool isBaseKept_ = false;         ///< beside the pending design
    std::optional<std::string> undoable_;
    Revisions revisions_;
};

}  // namespace orvel::designer
