#include "platform/host/card.h"

namespace orvel {

Scene cardScene(const View& view, WidgetFamily family, const LayoutContext& context, const SymbolSet& symbols) {
    return makeScene(view, displaySize(family), contentMargin, context, symbols);
}

}  // namespace orvel
