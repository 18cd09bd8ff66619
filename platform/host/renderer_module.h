// The module with the drawing libraries, loaded when a process first draws.
#pragma once

#include <memory>

#include "platform/foundation/result.h"
#include "platform/ui/renderer.h"

namespace orvel {

struct NoRenderer {
    std::string reason;  ///< one line
};

/// Loads the module from the program's own folder, or else from the folder of the installation that the program is part
/// of; never from anywhere else. The module stays loaded, so further renderers cost little.
Result<std::unique_ptr<Renderer>, NoRenderer> loadRenderer();

}  // namespace orvel
