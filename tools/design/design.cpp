#include "tools/design/design.h"

#include <vector>

#include "tools/core/own_program.h"

namespace orvel::tools {

Outcome<Done> design(const DesignChoices& choices, const Platform&, Console& console) {
    std::vector<std::string> words;
    if (choices.printsAddress) words.emplace_back("--no-browser");
    if (choices.port) words.insert(words.end(), {"--port", std::to_string(*choices.port)});
    if (choices.reference) words.push_back(*choices.reference);
    return become("orvel-designer", "designer", std::move(words), console);
}

}  // namespace orvel::tools
