// The renderer of Pango and Cairo. Programs load it as a module, and only to draw: its libraries are most of what a
// program of this project would hold in memory.
#pragma once

#include <memory>

#include "platform/ui/renderer.h"

namespace orvel {

std::unique_ptr<Renderer> makeCairoRenderer();

}  // namespace orvel
