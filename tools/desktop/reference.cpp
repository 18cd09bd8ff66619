#include "tools/desktop/reference.h"

#include <charconv>

#include "authoring/designs.h"
#include "authoring/references.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::tools {

Outcome<PlacedDesign> placedDesign(const std::string& reference, const Platform& platform) {
    if (reference.starts_with('@')) {
        DesignPosition position;
        const char* const end = reference.data() + reference.size();
        const auto [parsed, error] = std::from_chars(reference.data() + 1, end, position.number);
        if (error == std::errc{} && parsed == end && position.number > 0) return PlacedDesign(position);
        return Failure{unicode::onOneLine(reference) + ": " + sentence("a position is @1, @2 and so on"),
                       Failure::Cause::request};
    }
    const auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    const auto index = findOne(*specs, reference);
    if (!index) return index.failure();
    return PlacedDesign((*specs)[*index].id);
}

void tellIfNotStored(const PlacedDesign& design, const Platform& platform, Console& console) {
    const auto specs = readDesigns(platform);
    if (specs && !designAt({.design = design}, *specs))
        say(sentence("no design is stored at {0} now; its card appears when there is one", text(design)), console);
}

}  // namespace orvel::tools
