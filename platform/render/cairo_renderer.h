// The renderer, built on Pango and Cairo. Programs load it as a module, and only to draw, since its libraries would
// take more memory than all else in the program.
#pragma once

#include <memory>

#include "platform/ui/renderer.h"

namespace orvel {

std::unique_ptr<Renderer> makeCairoRenderer();

}  // namespace orvel
