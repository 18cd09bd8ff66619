// A person's desktop as JSON, for the page that draws it:
//   {"monitors":[{"name","x","y","width","height","isMain","cards":[{"place":0,"id":"…","x","y","width","height"}]}],
//    "places":[{"design":"…","family":…}], "designs":["the id of the design in each place, or none"]}
// Lengths are points. A card's "place" is its index among the places; -1 is the first design's card, which stands there
// as long as no design has a place.
#pragma once

#include <string>
#include <vector>

#include "designer/placing/monitors.h"
#include "desktop/place.h"
#include "model/widget_spec.h"

namespace orvel::designer {

std::string desktopJson(const std::vector<Monitor>& monitors, const std::vector<Place>& places,
                        const std::vector<WidgetSpec>& specs);

}  // namespace orvel::designer
