// What loading is compared with: the same records through a general-purpose JSON library, and the bare parse of a fast
// one. A text is handed over as its own copy, with room behind it, as WidgetStore gets one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/widget_spec.h"

namespace orvel::bench {

/// The designs through nlohmann::json's tree, with the checks of WidgetStore::load: empty when anything is wrong.
std::vector<WidgetSpec> loadWithNlohmann(std::string text);

/// simdjson's validating parse into its own tree. Nothing is taken from the tree.
class BareParser {
public:
    BareParser();
    ~BareParser();

    bool parse(std::string text);

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel::bench
