#include "platform/host/widget_bundle.h"

#include <clocale>
#include <cstdlib>
#include <iostream>

namespace orvel {

void serve(const std::vector<WidgetConfiguration>& widgets, const ExtensionInfo& extension) {
    std::setlocale(LC_MESSAGES, "");
    const auto say = [&](const std::string& sentence) { std::cerr << extension.program << ": " << sentence << '\n'; };
    const WidgetConfiguration& widget = widgets.front();
    const auto shown = showOnDesktop(widget, extension, {.family = widget.supportedFamilies.front(), .notice = say},
                                     Platform::system());
    if (shown) return;
    say(shown.failure().reason);
    std::exit(EXIT_FAILURE);
}

}  // namespace orvel
