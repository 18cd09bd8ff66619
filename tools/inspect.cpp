#include "platform/render/pango_text_engine.h"
#include "platform/render/symbols.h"
#include "platform/ui/dump.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/commands.h"

namespace orvel::tools {

Outcome<Done> inspect(const CardChoices& card, const Platform& platform, Console& console) {
    const auto view = cardView(card, platform, console);
    if (!view) return view.failure();

    PangoTextEngine text;
    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    const Symbols symbols;
    const auto drawsSymbol = [&](std::string_view symbol) { return symbols.contains(symbol); };
    const Scene scene = cardScene(*view, card.family, {text, localizer}, drawsSymbol);

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
