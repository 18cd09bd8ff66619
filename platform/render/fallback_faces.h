// Which faces stand in for the characters that the system font lacks. Private to this folder.
#pragma once

#include <pango/pango.h>

namespace orvel {

/// Where Fontconfig has no preference among the faces of a language, a sans one is taken, if there is one.
void preferSansFaces(PangoFontMap* fonts);

/// Whether it is the system font itself.
bool isSystemFace(PangoFont* font);

}  // namespace orvel
