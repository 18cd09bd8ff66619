#include "tools/drawing.h"

#include <filesystem>

namespace orvel::tools {

Outcome<Format> formatOf(const std::string& output) {
    if (output == "-") return Format::png;
    std::string ending = std::filesystem::path(output).extension().string();
    for (char& c : ending)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (ending == ".png") return Format::png;
    if (ending == ".svg") return Format::svg;
    if (ending == ".pdf") return Format::pdf;
    return Failure{output + ": the ending must be .png, .svg or .pdf"};
}

Outcome<std::string> encoded(const Picture& picture, Format format, double scale, Date created, Painter& painter) {
    auto bytes = format == Format::png   ? png(picture, scale, painter)
                 : format == Format::svg ? svg(picture, painter)
                                         : pdf(picture, created, painter);
    if (!bytes) return Failure{"can't draw: " + bytes.failure().reason};
    return *std::move(bytes);
}

}  // namespace orvel::tools
