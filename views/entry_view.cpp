#include "views/entry_view.h"

#include "views/card_words.h"
#include "views/spec_view.h"

namespace orvel {

View OrvelWidgetEntryView::body(const Platform& platform) const {
    if (spec_) return WidgetSpecView(*spec_).body(platform);
    return VStack(HorizontalAlignment::center, 4)({
        Image::systemName("square.grid.2x2").foregroundStyle(HierarchicalShapeStyle::secondary),
        Text(emptyStateKey()).font(Font::caption2).foregroundStyle(HierarchicalShapeStyle::secondary),
    });
}

}  // namespace orvel
