// What a page shows, as JSON: the stored designs, the one that is edited, and what can be done.
#pragma once

#include <string>
#include <vector>

#include "designer/card_pictures.h"
#include "designer/editing/workbench.h"
#include "platform/symbols/symbols.h"

namespace orvel::designer {

/// Names a design's content: two that differ in anything have different ones, as far as 64 bits go.
std::string version(const WidgetSpec& spec);

// Members of an object, without its braces. The stored designs are by far the longer part, and stay as they are while
// somebody types. `versions` are theirs.
std::string storeMembers(const Workbench& workbench, const std::vector<std::string>& versions,
                         const CardPictures& pictures);
std::string draftMembers(const Workbench& workbench, const CardPictures& pictures, const Symbols& symbols,
                         const Platform& platform);

}  // namespace orvel::designer
