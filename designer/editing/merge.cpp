#include "designer/editing/merge.h"

#include "model/widget_fields.h"

namespace orvel::designer {

std::optional<WidgetSpec> merged(const WidgetSpec& base, const WidgetSpec& mine, const WidgetSpec& theirs) {
    WidgetSpec both = mine;
    bool isAgreed = true;
    forEachWidgetField([&](const auto& row) {
        if (row.in(theirs) == row.in(base) || row.in(theirs) == row.in(mine)) return;
        isAgreed = isAgreed && row.in(mine) == row.in(base);
        row.in(both) = row.in(theirs);
    });
    return isAgreed ? std::optional(both) : std::nullopt;
}

}  // namespace orvel::designer
