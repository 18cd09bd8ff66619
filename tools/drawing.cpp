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

Outcome<std::unique_ptr<Renderer>> openRenderer() {
    auto renderer = loadRenderer();
    if (!renderer) return Failure{"can't draw: " + renderer.failure().reason};
    return *std::move(renderer);
}

Outcome<std::string> encoded(const Picture& picture, Format format, double scale, Date created, Renderer& renderer) {
    auto bytes = format == Format::png   ? renderer.png(picture, scale)
                 : format == Format::svg ? renderer.svg(picture)
                                         : renderer.pdf(picture, created);
    if (!bytes) return Failure{"can't draw: " + bytes.failure().reason};
    return *std::move(bytes);
}

}  // namespace orvel::tools
