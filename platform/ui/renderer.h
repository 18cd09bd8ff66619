// The interface to the drawing libraries: they lay out lines of text and draw scenes.
#pragma once

#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/foundation/pixel_buffer.h"
#include "platform/foundation/result.h"
#include "platform/ui/scene.h"

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

/// Why nothing could be drawn, in the words of the drawing library.
struct PictureFailure {
    std::string reason;
};

/// Which fonts the machine has for texts.
struct FontReport {
    std::string systemFont;            ///< the family that is wanted
    std::string family;                ///< the family that is used; another one where that isn't installed
    std::vector<std::string> missing;  ///< the scripts in wide use that no installed font has
};

/// The glyphs in an SVG are outlines; it can contain the words as well.
enum class SvgText { none, selectable };

/// The same scenes give the same bytes. A renderer caches what later drawings can reuse; use it in one thread.
class Renderer {
public:
    virtual ~Renderer() = default;

    /// What the scenes that this renderer draws are made with.
    virtual TextEngine& text() = 0;
    virtual const SymbolSet& symbols() const = 0;

    virtual FontReport fonts() const = 0;

    /// Draws over the given pixels, at their scale. False when memory runs out.
    virtual bool paint(const Picture& picture, const PixelBuffer& pixels) = 0;

    /// 32-bit RGBA; `scale` pixels to the point, sides rounded to whole pixels. Transparent outside the cards.
    virtual Result<std::string, PictureFailure> png(const Picture& picture, double scale) = 0;

    /// A px to the point.
    virtual Result<std::string, PictureFailure> svg(const Picture& picture, SvgText text) = 0;

    /// Sizes in points; text can be selected. The date is the document's creation date.
    virtual Result<std::string, PictureFailure> pdf(const Picture& picture, Date created) = 0;
};

}  // namespace orvel
