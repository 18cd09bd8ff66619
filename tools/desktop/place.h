// Putting designs on the desktop, and taking them off.
#pragma once

#include <string>

#include "tools/desktop/desktop.h"

namespace orvel::tools {

/// Gives the design a place, or changes the one that it has.
Outcome<Done> place(const PlaceChoices& choices, const Platform& platform, Console& console);

enum class PlacesForm { table, json };

/// Prints the places in their order, and the monitors that are there or are missing.
Outcome<Done> listPlaces(PlacesForm form, const Platform& platform, Console& console);

/// A design's reference, or the place's number in the list.
Outcome<Done> unplace(const std::string& reference, const Platform& platform, Console& console);

}  // namespace orvel::tools
