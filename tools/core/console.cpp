#include "tools/core/console.h"

#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::tools {

void say(std::string_view sentence, Console& console) {
    console.err << "orvel: " << unicode::onOneLine(sentence) << '\n';
}

void warn(std::string_view sentence, Console& console) {
    say(orvel::sentence("warning: {0}", sentence), console);
}

}  // namespace orvel::tools
