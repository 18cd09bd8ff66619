// Puts designs on the desktop, and takes them off.
#pragma once

#include <string>

#include "tools/desktop/desktop.h"

namespace orvel::tools {

/// Gives the design a place, or changes the one that it has.
Outcome<Done> place(const PlaceChoices& choices, const Platform& platform, Console& console);

enum class PlacesForm { table, json };

/// Prints the places in their order, the connected monitors, and those that are missing.
Outcome<Done> listPlaces(PlacesForm form, const Platform& platform, Console& console);

/// Takes a design's reference, or the number of the place in the list.
Outcome<Done> unplace(const std::string& reference, const Platform& platform, Console& console);

}  // namespace orvel::tools
