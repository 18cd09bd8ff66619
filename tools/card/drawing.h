// Writes pictures of cards, in the format that the file's ending names.
#pragma once

#include <memory>
#include <string>

#include "platform/foundation/platform.h"
#include "platform/host/timeline.h"
#include "platform/ui/gettext_localizer.h"
#include "platform/ui/renderer.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct DrawingChoices {
    std::string output;  ///< a file, or "-" for PNG on standard output
    double scale = 2;    ///< pixels to the point, for PNG
    SvgText svgText = SvgText::none;
};

enum class Format { png, svg, pdf };

/// By the ending, in any letter case: .png, .svg, .pdf.
Outcome<Format> formatOf(const std::string& output);

/// Checks, before anything is drawn, whether a picture can be written there: the ending must be one of these, and
/// standard output must not be a terminal.
Outcome<Done> canWrite(const std::string& output, const Console& console);

/// What drawing needs: the renderer, and the texts in the person's language.
class Drawing {
public:
    static Outcome<Drawing> open();

    LayoutContext context() const { return {renderer_->text(), *localizer_}; }
    const SymbolSet& symbols() const { return renderer_->symbols(); }

    /// A card as the host shows it.
    Scene scene(const View& view, WidgetFamily family) const;

    /// Draws the picture into the chosen output, in one step.
    Outcome<Done> write(const Picture& picture, const DrawingChoices& choices, const Platform& platform,
                        Console& console) const;

private:
    explicit Drawing(std::unique_ptr<Renderer> renderer);

    std::unique_ptr<Renderer> renderer_;
    std::unique_ptr<GettextLocalizer> localizer_;
};

}  // namespace orvel::tools
