#include "platform/host/card.h"

namespace orvel {

Scene cardScene(const View& view, WidgetFamily family, const LayoutContext& context,
                FunctionRef<bool(std::string_view)> drawsSymbol) {
    return makeScene(view, displaySize(family), contentMargin, context, drawsSymbol);
}

}  // namespace orvel
