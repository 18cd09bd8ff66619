#include "widget/orvel_widget.h"

int main() {
    orvel::OrvelWidgetBundle::main();
    return 0;
}
