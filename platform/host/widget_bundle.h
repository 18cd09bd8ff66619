// What an extension's process does: it registers the bundle's widgets with the desktop's host and serves them.
#pragma once

#include <vector>

#include "platform/foundation/function_ref.h"
#include "platform/host/desktop.h"

namespace orvel {

/// Shows the bundle's first widget in the place that the host gives by default. When the host can't, or can't any
/// longer, it says so in one line on standard error and ends the process with status 1.
void serve(const std::vector<WidgetConfiguration>& widgets, const ExtensionInfo& extension);

/// Runs the work of a program's `main`. What it throws, such as for want of memory, ends the process with status 1 and
/// one line on standard error.
void runProgram(FunctionRef<void()> work);

/// A bundle derives from this with itself as the argument and has `body()`, a list of its widgets, and the static
/// `info()`, what else it declares.
template <class Bundle>
class WidgetBundle {
public:
    static void main() {
        runProgram([] {
            std::vector<WidgetConfiguration> widgets;
            for (const auto& widget : Bundle().body()) widgets.push_back(widget.body());
            serve(widgets, Bundle::info());
        });
    }
};

}  // namespace orvel
