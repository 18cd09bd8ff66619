// A change of the list of designs: the designs that it takes out and those that it puts in, so that it can be taken
// back.
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
        std::size_t index;  ///< of what is taken out in the old list, of what is put in in the new list
        WidgetSpec spec;
        std::size_t sameId = 0;  ///< how many designs with the id of what is taken out remain
    };

    std::string what;            ///< one line for a person: removed "Active users" (6F1A)
    std::vector<Place> removed;  ///< by ascending index, like `inserted`
    std::vector<Place> inserted;
    std::optional<WidgetSpec> accepted = {};  ///< the pending design, when it was stored by this

    /// Whether the list stays the same.
    bool isEmpty() const;
    std::vector<WidgetSpec> appliedTo(std::vector<WidgetSpec> specs) const;
};

namespace Changes {

/// Puts the design first, replacing all others with its id. An empty id is a failure.
Outcome<Change> adding(const std::vector<WidgetSpec>& specs, WidgetSpec spec);

/// Replaces a design by another one. Its id must not be empty, or that of a third design.
Outcome<Change> replacing(const std::vector<WidgetSpec>& specs, std::size_t index, WidgetSpec spec);

Change movingToFront(const std::vector<WidgetSpec>& specs, std::size_t index);
/// Moves a design to another index of the list.
Change moving(const std::vector<WidgetSpec>& specs, std::size_t index, std::size_t to);

Change removing(const std::vector<WidgetSpec>& specs, const std::set<std::size_t>& indexes);

/// The list with the change taken back. What others have changed since stays: other designs, and other fields of the
/// same design. It fails when they have changed the same fields or removed the design, and when a design would come
/// back whose id another design now has. Absent when the change is taken back already.
Outcome<std::optional<std::vector<WidgetSpec>>> takenBack(const Change& change, std::vector<WidgetSpec> specs);

/// What to call a design: "Active users" (6F1A).
std::string nameOf(const WidgetSpec& spec);

}  // namespace Changes
}  // namespace orvel
