#include "platform/ui/dump.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/commands.h"

namespace orvel::tools {

Outcome<Done> inspect(const CardChoices& card, const Platform& platform, Console& console) {
    const auto view = cardView(card, platform, console);
    if (!view) return view.failure();

    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    const auto renderer = openRenderer();
    if (!renderer) return renderer.failure();
    const Scene scene = cardScene(*view, card.family, {(*renderer)->text(), localizer}, (*renderer)->symbols());

    json::Writer writer;
    writer.beginObject().key("family").string(name(card.family));
    writer.key("size").beginArray().number(scene.size.width).number(scene.size.height).endArray();
    writer.key("background");
    if (scene.background)
        writer.string(hexText(*scene.background));
    else
        writer.null();
    writer.key("tree");
    write(writer, *view);
    writer.key("marks");
    write(writer, scene.marks);
    const auto json = writer.endObject().finish();
    if (!json) return Failure{"the card can't be written as JSON"};
    console.out << *json << '\n';
    return Done{};
}

}  // namespace orvel::tools
