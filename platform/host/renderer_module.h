// The module with the drawing libraries, loaded when a process first draws.
#pragma once

#include <memory>

#include "platform/foundation/result.h"
#include "platform/ui/renderer.h"

namespace orvel {

struct NoRenderer {
    std::string reason;  ///< one line, in the words of the dynamic linker
};

/// The module stays loaded; another renderer costs little then.
Result<std::unique_ptr<Renderer>, NoRenderer> loadRenderer();

}  // namespace orvel
