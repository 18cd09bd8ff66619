// Pictures in the format that a file's ending names.
#pragma once

#include <memory>
#include <string>

#include "platform/host/renderer_module.h"
#include "tools/console.h"

namespace orvel::tools {

struct DrawingChoices {
    std::string output;  ///< a file, or "-" for PNG on standard output
    double scale = 2;    ///< pixels to the point, for PNG
};

enum class Format { png, svg, pdf };

/// By the ending, in any letter case: .png, .svg, .pdf.
Outcome<Format> formatOf(const std::string& output);

Outcome<std::unique_ptr<Renderer>> openRenderer();

Outcome<std::string> encoded(const Picture& picture, Format format, double scale, Date created, Renderer& renderer);

}  // namespace orvel::tools
