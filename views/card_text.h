// A card as lines of text, for terminals, screen readers and status bars.
#pragma once

#include <string>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "platform/ui/localized.h"

namespace orvel {

/// The line that stands for the whole card: headline, percentage, or how many items. Without control characters.
std::string headlineText(const WidgetSpec& spec, const Localizer& localizer, const Platform& platform);

/// Title, headline or percentage, secondary line and rows, each on a line of its own, without empty lines and other
/// control characters.
std::string cardText(const WidgetSpec& spec, const Localizer& localizer, const Platform& platform);

}  // namespace orvel
