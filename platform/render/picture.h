// Scenes as the bytes of a PNG, SVG or PDF file. Same scenes, same bytes.
#pragma once

#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/pixel_buffer.h"
#include "platform/foundation/result.h"
#include "platform/render/painter.h"

namespace orvel {

/// One or more cards on a sheet, in points.
struct Picture {
    struct Card {
        Point origin;
        Scene scene;
    };
    Size size;
    double cornerRadius = 0;  ///< of every card
    std::vector<Card> cards;
};

/// Why there are no bytes, in the words of the drawing library.
struct PictureFailure {
    std::string reason;
};

/// Draws over what the pixels are, at their scale. False when memory runs out.
bool paint(const Picture& picture, const PixelBuffer& pixels, Painter& painter);

/// 32-bit RGBA; `scale` pixels to the point, sides rounded to whole pixels. Transparent outside the cards.
Result<std::string, PictureFailure> png(const Picture& picture, double scale, Painter& painter);

/// Sizes in points; outlines for glyphs.
Result<std::string, PictureFailure> svg(const Picture& picture, Painter& painter);

/// Sizes in points; text can be selected. The date is the document's creation date.
Result<std::string, PictureFailure> pdf(const Picture& picture, Date created, Painter& painter);

}  // namespace orvel
