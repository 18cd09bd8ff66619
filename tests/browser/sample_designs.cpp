// Prints the gallery's designs as a store has them, for scripts/compare-with-browser.
#include <iostream>
#include <vector>

#include "authoring/sample_designs.h"
#include "model/widget_spec_json.h"

int main() {
    std::vector<orvel::WidgetSpec> specs;
    for (const orvel::WidgetKind kind : orvel::allWidgetKinds) {
        orvel::WidgetSpec::Fields fields = orvel::sampleDesign(kind);
        fields.id = rawValue(kind);
        specs.emplace_back(std::move(fields));
    }
    std::cout << orvel::WidgetSpecJSON::encodeList(specs).value() << '\n';
}
