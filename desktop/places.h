// The places that a person chose, in "orvel/places.json" in the person's configuration folder (XDG Base Directory).
// Like the store, the file is replaced atomically, and changed under the folder's lock.
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

/// Changes them in one step. When the file isn't valid, keeps a copy of it and starts without places; the result then
/// says so in one line. A failed `change` changes nothing.
Outcome<std::optional<std::string>> changePlaces(const std::function<Outcome<Done>(std::vector<Place>&)>& change,
                                                 const Platform& platform);

}  // namespace orvel
