// A change of the list of designs: what it takes out and what it puts in, so that it can be taken back.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"

namespace orvel {

struct Change {
    struct Place {
        std::size_t index;  ///< in the list before of what is taken out, in the list after of what is put in
        WidgetSpec spec;
        std::size_t sameId = 0;  ///< of what is taken out: how many designs with its id stay
    };

    std::string what;            ///< one line for a person: removed "Active users" (6F1A)
    std::vector<Place> removed;  ///< by rising index, as the next
    std::vector<Place> inserted;
    std::optional<WidgetSpec> accepted = {};  ///< the pending design, when it was stored by this

    /// Nothing would be written that isn't there.
    bool isEmpty() const;
    std::vector<WidgetSpec> appliedTo(std::vector<WidgetSpec> specs) const;
};

namespace Changes {

/// Puts the design first, in place of all others with its id. An empty id is a failure.
Outcome<Change> adding(const std::vector<WidgetSpec>& specs, WidgetSpec spec);

/// Puts the design in place of another one. A new id is a failure when it is empty or another design's.
Outcome<Change> replacing(const std::vector<WidgetSpec>& specs, std::size_t index, WidgetSpec spec);

Change movingToFront(const std::vector<WidgetSpec>& specs, std::size_t index);
/// To another index of the list.
Change moving(const std::vector<WidgetSpec>& specs, std::size_t index, std::size_t to);

Change removing(const std::vector<WidgetSpec>& specs, const std::set<std::size_t>& indexes);

/// The list without the change, though others may have changed other designs since, or other fields of the same one.
/// What the change put in and isn't there any more as it was, or would come back beside a design of the same id, makes
/// it a failure; nothing of others is undone. Absent when there is nothing left to take back.
Outcome<std::optional<std::vector<WidgetSpec>>> takenBack(const Change& change, std::vector<WidgetSpec> specs);

/// What to call a design: "Active users" (6F1A).
std::string nameOf(const WidgetSpec& spec);

}  // namespace Changes
}  // namespace orvel
