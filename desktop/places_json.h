// Places to JSON and back: an array of objects such as
//   {"design":"@1","family":"small","anchor":"top-right","margin":[24,24],"output":"primary","layer":"bottom"}
// of which only "design" must be there. "output" is a monitor's name, "primary" or "all". Other members are ignored.
#pragma once

#include <string>
#include <vector>

#include "desktop/place.h"
#include "platform/foundation/result.h"

namespace orvel::PlacesJSON {

struct Fault {
    std::string reason;  ///< one line without a full stop
    std::size_t offset;  ///< where in the text, in bytes
};

Result<std::vector<Place>, Fault> decode(std::string text);

/// A place on each line, for people who read it.
std::string encode(const std::vector<Place>& places);

}  // namespace orvel::PlacesJSON
