#include "tools/design/design.h"

#include <vector>

#include "platform/language/sentence.h"
#include "tools/core/own_program.h"

namespace orvel::tools {

Outcome<Done> design(const DesignChoices& choices, const Platform&, Console& console) {
    const std::string program = ownProgram("orvel-designer");
    std::error_code code;
    if (!std::filesystem::exists(program, code))
        return Failure{program + ": " +
                       sentence("the designer isn't installed; it comes with the package orvel-designer")};
    std::vector<std::string> words;
    if (choices.printsAddress) words.emplace_back("--no-browser");
    if (choices.port) words.insert(words.end(), {"--port", std::to_string(*choices.port)});
    if (choices.reference) words.push_back(*choices.reference);
    return become("orvel-designer", toTranslate("can't start the designer: {0}"), std::move(words), console);
}

}  // namespace orvel::tools
