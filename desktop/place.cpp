#include "desktop/place.h"

#include <algorithm>

#include "platform/foundation/unicode.h"

namespace orvel {

const WidgetSpec* designAt(const Place& place, const std::vector<WidgetSpec>& specs) {
    if (const auto* const position = std::get_if<DesignPosition>(&place.design))
        return position->number >= 1 && position->number <= specs.size() ? &specs[position->number - 1] : nullptr;
    const auto& id = std::get<std::string>(place.design);
    const auto found = std::ranges::find_if(
        specs, [&](const WidgetSpec& spec) { return unicode::canonicallyEquivalent(spec.id, id); });
    return found == specs.end() ? nullptr : &*found;
}

std::string text(const PlacedDesign& design) {
    if (const auto* const id = std::get_if<std::string>(&design)) return *id;
    return "@" + std::to_string(std::get<DesignPosition>(design).number);
}

}  // namespace orvel
