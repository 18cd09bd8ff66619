// Places to JSON and back: an array of objects such as
//   {"design":"@1","family":"small","anchor":"top-right","margin":[24,24],"output":"primary","layer":"bottom"}
// of which only "design" must be there. "output" is a monitor's name, "primary" or "all". Other members are ignored.
#pragma once

#include <string>
#include <vector>

#include "authoring/list_file.h"
#include "desktop/place.h"

namespace orvel::PlacesJSON {

Result<std::vector<Place>, TextFault> decode(std::string text);

/// A place on each line, for people who read it.
std::string encode(const std::vector<Place>& places);

}  // namespace orvel::PlacesJSON
