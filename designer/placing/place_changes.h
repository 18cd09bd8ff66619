// Changes of the places file that a page asks for.
#pragma once

#include <string>

#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// `json` is a list with one place, as the places file has it. It takes the place of the same design's, or comes last.
Outcome<Done> putPlace(std::string json, const Platform& platform);

/// `design` is an id, or a position such as "@1", as the place has it.
Outcome<Done> movePlace(const std::string& design, std::size_t to, const Platform& platform);
Outcome<Done> removePlace(const std::string& design, const Platform& platform);

}  // namespace orvel::designer
