#include <cstdio>
#include <string_view>

#include "widget/orvel_widget.h"

int main(int argc, char** argv) {
    const std::string_view argument = argc > 1 ? argv[1] : "";
    if (argument == "--version" || argument == "-V") {
        std::puts("orvel-widget " ORVEL_VERSION);
        return 0;
    }
    if (argument == "--help" || argument == "-h") {
        std::puts(
            "Shows the first stored design as a card on the desktop, until it is asked to end.\n"
            "It takes no arguments; the orvel command keeps the designs, and orvel desktop shows several.");
        return 0;
    }
    orvel::OrvelWidgetBundle::main();
    return 0;
}
