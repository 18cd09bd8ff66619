// The words of a picture as text elements of an SVG document. Private to this folder.
#pragma once

#include <string>

#include "platform/ui/renderer.h"

namespace orvel {

/// One element for each line, exactly where its glyphs are drawn and as wide, without a colour of its own: it can be
/// selected, searched and read aloud, whatever fonts the viewer has.
std::string svgText(const Picture& picture);

}  // namespace orvel
