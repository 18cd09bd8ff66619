#include "platform/ui/gettext_localizer.h"
#include "tools/commands.h"
#include "tools/input_output.h"

namespace orvel::tools {

Outcome<Done> render(const CardChoices& card, const DrawingChoices& drawing, const Platform& platform,
                     Console& console) {
    const auto format = formatOf(drawing.output);
    if (!format) return format.failure();
    const auto view = cardView(card, platform, console);
    if (!view) return view.failure();

    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    const auto renderer = openRenderer();
    if (!renderer) return renderer.failure();
    Scene scene = cardScene(*view, card.family, {(*renderer)->text(), localizer}, (*renderer)->symbols());
    const Picture picture{scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}};

    const auto bytes = encoded(picture, *format, drawing.scale, platform.clock.now(), **renderer);
    if (!bytes) return bytes.failure();
    return writeOutput(drawing.output, *bytes, platform.files, console);
}

}  // namespace orvel::tools
