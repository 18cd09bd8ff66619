// Draws glyphs together with their characters, so that a document's text can be selected, searched and read in its own
// order. Private to this folder.
#pragma once

#include "platform/render/handles.h"

namespace orvel {

/// Draws a run of a line along the baseline, beginning at that point, in the context's source. The glyphs of one
/// user-perceived character stay together, however they are ordered and stacked. The run has neither coloured nor
/// unknown glyphs.
void showText(cairo_t* cr, const PangoLayoutLine& line, PangoLayoutRun& run, double x);

}  // namespace orvel
