// The monitors of this session, as a page draws them: to scale, in points, each beside the others.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/geometry.h"
#include "platform/window/surface/window_system.h"

namespace orvel::designer {

struct Monitor {
    std::string name;
    Rect area = {};  ///< points of one plane that has all monitors
    bool isMain = false;
};

/// In what `Output::area` counts where a monitor begins.
enum class OutputOrigins { points, pixels };

/// Monitors that would lie on one another are put in a row: not every compositor says where they are.
std::vector<Monitor> monitors(const std::vector<Output>& outputs, OutputOrigins origins);

/// Asks the window system. Without a display there are none.
std::vector<Monitor> monitorsHere();

}  // namespace orvel::designer
