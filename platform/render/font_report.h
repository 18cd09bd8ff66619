// Which fonts this machine has for a card's texts.
#pragma once

#include "platform/ui/renderer.h"

namespace orvel {

/// `systemFont` is the family that is asked for.
FontReport reportFonts(const std::string& systemFont);

}  // namespace orvel
