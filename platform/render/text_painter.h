// Draws a text's lines. Private to this folder.
#pragma once

#include "platform/render/glyph_masks.h"
#include "platform/render/target.h"
#include "platform/ui/scene.h"

namespace orvel {

/// Draws a translucent text in one tone, also where its glyphs overlap. Coloured glyphs take over its opacity.
void drawText(cairo_t* cr, const TextMark& text, const Rect& frame, Target target, GlyphMasks& masks);

}  // namespace orvel
