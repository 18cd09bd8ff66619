// Lists the stored designs.
#pragma once

#include "platform/foundation/platform.h"
#include "platform/language/sentence.h"
#include "tools/core/console.h"

namespace orvel::tools {

enum class ListForm { table, json, ids };

/// Tells a person without any designs how to begin.
inline constexpr const char* noDesignsYet = toTranslate(
    "no designs are stored yet; this makes one: orvel add --kind metric --title \"Active users\" --primary 42");

/// The table marks the design that the desktop shows; on a terminal it is cut to the terminal's width.
Outcome<Done> list(ListForm form, const Platform& platform, Console& console);

}  // namespace orvel::tools
