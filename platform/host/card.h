// A card's scene: the view in its family's size, with the margins that every card has.
#pragma once

#include "platform/host/timeline.h"
#include "platform/ui/scene.h"
#include "platform/ui/view.h"

namespace orvel {

/// Points between the card's edges and the widget's view.
inline constexpr double contentMargin = 16;
/// Points. Nothing is drawn outside the rounded shape.
inline constexpr double cornerRadius = 20;

Scene cardScene(const View& view, WidgetFamily family, const LayoutContext& context, const SymbolSet& symbols);

}  // namespace orvel
