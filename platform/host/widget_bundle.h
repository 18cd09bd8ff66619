// The main function of a program of widgets: it passes the bundle's widgets to the host, which shows them.
#pragma once

#include <vector>

#include "platform/foundation/function_ref.h"
#include "platform/host/desktop.h"

namespace orvel {

/// Shows the bundle's first widget in the default place. When that is impossible, or no longer possible, it says so in
/// one line on standard error and ends the process with status 1.
void serve(const std::vector<WidgetConfiguration>& widgets, const ExtensionInfo& extension);

/// Runs the work of a program's `main`. An exception, such as for lack of memory, ends the process with status 1 and
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
