// Takes a design through JSON, and counts the stored ones.
#include <iostream>

#include "model/widget_spec_json.h"
#include "model/widget_store.h"

int main() {
    const orvel::WidgetSpec spec({.title = "Installed", .kind = orvel::WidgetSpec::Kind::note});
    const auto decoded = orvel::WidgetSpecJSON::decode(orvel::WidgetSpecJSON::encode(spec).value());
    if (!decoded || !(*decoded == spec)) return 1;
    std::cout << orvel::WidgetStore::load().size() << " stored\n";
}
