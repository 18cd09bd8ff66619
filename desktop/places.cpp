#include "desktop/places.h"

#include "authoring/list_file.h"
#include "desktop/places_json.h"

namespace orvel {
namespace {

ListFile<Place> listFile(const Platform& platform) {
    return {placesFile(platform), PlacesJSON::decode,
            [](const std::vector<Place>& places) -> Outcome<std::string> { return PlacesJSON::encode(places); },
            NewFile::asUmaskAllows};
}

}  // namespace

std::filesystem::path placesFile(const Platform& platform) {
    return std::filesystem::path(configurationDirectory(platform.accounts)) / "orvel" / "places.json";
}

Outcome<std::vector<Place>> readPlaces(const Platform& platform) {
    return listFile(platform).read(platform);
}

Outcome<std::optional<std::string>> changePlaces(const std::function<Outcome<Done>(std::vector<Place>&)>& change,
                                                 const Platform& platform) {
    return listFile(platform).change(change, platform);
}

}  // namespace orvel
