// A view's texts in one line, for screen readers.
#pragma once

#include <string>

#include "platform/ui/localized.h"
#include "platform/ui/view.h"

namespace orvel {

/// The texts in the tree's order, ", " between them, on one line; at most 200 characters, with "…" for what is cut.
/// Control characters and line breaks are blanks.
std::string words(const View& view, const Localizer& localizer);

}  // namespace orvel
