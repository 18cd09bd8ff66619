#include "tools/core/console.h"

#include "platform/foundation/unicode.h"

namespace orvel::tools {

void say(std::string_view sentence, Console& console) {
    console.err << "orvel: " << unicode::onOneLine(sentence) << '\n';
}

void warn(std::string_view sentence, Console& console) {
    console.err << "orvel: warning: " << unicode::onOneLine(sentence) << '\n';
}

}  // namespace orvel::tools
