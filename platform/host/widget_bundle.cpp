#include "platform/host/widget_bundle.h"

#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <new>

namespace orvel {

void serve(const std::vector<WidgetConfiguration>& widgets, const ExtensionInfo& extension) {
    std::setlocale(LC_MESSAGES, "");
    const auto say = [&](const std::string& sentence) { std::cerr << extension.program << ": " << sentence << '\n'; };
    const WidgetConfiguration& widget = widgets.front();
    const auto shown =
        showWidgetOnDesktop(widget, extension, {.family = widget.supportedFamilies.front()}, say, Platform::system());
    if (shown) return;
    say(shown.failure().reason);
    std::exit(EXIT_FAILURE);
}

void runProgram(FunctionRef<void()> work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        std::cerr << program_invocation_short_name << ": out of memory\n";
    } catch (const std::exception& error) {
        std::cerr << program_invocation_short_name << ": " << error.what() << '\n';
    }
    std::exit(EXIT_FAILURE);
}

}  // namespace orvel
