// The places that a person chose, kept as "orvel/places.json" in the person's configuration folder (XDG Base
// Directory), as safely as the store: replaced whole, and changed under the folder's lock.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/place.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

std::filesystem::path placesFile(const Platform& platform);

/// A missing file has none. One that can't be read, or isn't understood, is a failure that says where and why.
Outcome<std::vector<Place>> readPlaces(const Platform& platform);

/// Changes them in one step. A file that isn't understood is kept beside, and the change starts from none; the result
/// then says so in one line. A failed `change` changes nothing.
Outcome<std::optional<std::string>> changePlaces(const std::function<Outcome<Done>(std::vector<Place>&)>& change,
                                                 const Platform& platform);

}  // namespace orvel
