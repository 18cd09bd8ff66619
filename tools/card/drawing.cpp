#include "tools/card/drawing.h"

#include <filesystem>

#include "platform/host/card.h"
#include "platform/host/renderer_module.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"

namespace orvel::tools {
namespace {

Result<std::string, PictureFailure> encoded(const Picture& picture, Format format, const DrawingChoices& choices,
                                            Date created, Renderer& renderer) {
    switch (format) {
        case Format::png: return renderer.png(picture, choices.scale);
        case Format::svg: return renderer.svg(picture, choices.svgText);
        case Format::pdf: break;
    }
    return renderer.pdf(picture, created);
}

}  // namespace

Outcome<Format> formatOf(const std::string& output) {
    if (output == "-") return Format::png;
    std::string ending = std::filesystem::path(output).extension().string();
    for (char& c : ending)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (ending == ".png") return Format::png;
    if (ending == ".svg") return Format::svg;
    if (ending == ".pdf") return Format::pdf;
    return Failure{output + ": " + sentence("the ending must be .png, .svg or .pdf")};
}

Outcome<Done> canWrite(const std::string& output, const Console& console) {
    if (output == "-" && console.columns)
        return Failure{sentence("a terminal can't show a PNG; name a file with -o, or redirect the output")};
    if (const auto format = formatOf(output); !format) return format.failure();
    return Done{};
}

Drawing::Drawing(std::unique_ptr<Renderer> renderer)
    : renderer_(std::move(renderer)),
      localizer_(std::make_unique<GettextLocalizer>(GettextLocalizer::installedDirectory())) {}

Outcome<Drawing> Drawing::open() {
    auto renderer = loadRenderer();
    if (!renderer) return Failure{sentence("can't draw: {0}", renderer.failure().reason)};
    return Drawing(*std::move(renderer));
}

Scene Drawing::scene(const View& view, WidgetFamily family) const {
    return cardScene(view, family, context(), symbols());
}

Outcome<Done> Drawing::write(const Picture& picture, const DrawingChoices& choices, const Platform& platform,
                             Console& console) const {
    const auto format = formatOf(choices.output);
    if (!format) return format.failure();
    const auto bytes = encoded(picture, *format, choices, platform.clock.now(), *renderer_);
    if (!bytes) return Failure{sentence("can't draw: {0}", bytes.failure().reason)};
    return writeOutput(choices.output, *bytes, platform.files, console);
}

}  // namespace orvel::tools
