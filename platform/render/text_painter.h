// Draws a text's lines. Private to this folder.
#pragma once

#include "platform/render/glyph_masks.h"
#include "platform/render/target.h"
#include "platform/ui/scene.h"

namespace orvel {

/// In one tone, wherever its glyphs overlap; glyphs in colours of their own follow its opacity.
void drawText(cairo_t* cr, const TextMark& text, const Rect& frame, Target target, GlyphMasks& masks);

}  // namespace orvel
