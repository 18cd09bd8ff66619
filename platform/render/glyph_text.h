// Glyphs along with the characters that they stand for, so that a document's text can be selected, searched and read
// in its own order. Private to this folder.
#pragma once

#include "platform/render/handles.h"

namespace orvel {

/// Draws a run of a line from there on along the baseline, in the context's source. What people see as one character
/// stays together, however its glyphs are ordered and stacked. The run has neither colour nor unknown glyphs.
void showText(cairo_t* cr, const PangoLayoutLine& line, PangoLayoutRun& run, double x);

}  // namespace orvel
