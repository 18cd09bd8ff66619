#include "designer/placing/place_changes.h"

#include <algorithm>

#include "desktop/places.h"
#include "desktop/places_json.h"
#include "platform/foundation/unicode.h"

namespace orvel::designer {
namespace {

using Places = std::vector<Place>;

Outcome<Done> change(const std::function<Outcome<Done>(Places&)>& wanted, const Platform& platform) {
    const auto changed = changePlaces(wanted, platform);
    if (!changed) return changed.failure();
    return Done{};
}

Outcome<Places::iterator> placeOf(const std::string& design, Places& places) {
    const auto found = std::ranges::find_if(places, [&](const Place& place) { return text(place.design) == design; });
    if (found != places.end()) return found;
    return Failure{unicode::onOneLine(design) + " has no place any more", Failure::Cause::request, "placed"};
}

}  // namespace

Outcome<Done> putPlace(std::string json, const Platform& platform) {
    const auto wanted = PlacesJSON::decode(std::move(json));
    if (!wanted) return Failure{wanted.failure().reason, Failure::Cause::request, "place"};
    if (wanted->size() != 1) return Failure{"a list with one place is wanted", Failure::Cause::request, "place"};
    const auto put = [&](Places& places) -> Outcome<Done> {
        const auto found = std::ranges::find(places, wanted->front().design, &Place::design);
        (found != places.end() ? *found : places.emplace_back()) = wanted->front();
        return Done{};
    };
    return change(put, platform);
}

Outcome<Done> movePlace(const std::string& design, std::size_t to, const Platform& platform) {
    const auto move = [&](Places& places) -> Outcome<Done> {
        const auto found = placeOf(design, places);
        if (!found) return found.failure();
        const auto goal = places.begin() + static_cast<std::ptrdiff_t>(std::min(to, places.size() - 1));
        if (*found < goal)
            std::rotate(*found, *found + 1, goal + 1);
        else
            std::rotate(goal, *found, *found + 1);
        return Done{};
    };
    return change(move, platform);
}

Outcome<Done> removePlace(const std::string& design, const Platform& platform) {
    const auto remove = [&](Places& places) -> Outcome<Done> {
        const auto found = placeOf(design, places);
        if (!found) return found.failure();
        places.erase(*found);
        return Done{};
    };
    return change(remove, platform);
}

}  // namespace orvel::designer
