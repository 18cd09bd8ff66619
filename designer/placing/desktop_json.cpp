#include "designer/placing/desktop_json.h"

#include "desktop/places_json.h"
#include "platform/foundation/json_writer.h"
#include "platform/host/arrangement.h"

namespace orvel::designer {
namespace {

struct DrawnCard {
    int place;
    const WidgetSpec* design;
    CardToArrange card;
};

std::vector<DrawnCard> drawnCards(const std::vector<Place>& places, const std::vector<WidgetSpec>& specs) {
    std::vector<DrawnCard> cards;
    const auto add = [&](int index, const Place& place) {
        if (const WidgetSpec* const design = designAt(place, specs))
            cards.push_back({index, design, {displaySize(place.family), place.place}});
    };
    for (std::size_t i = 0; i < places.size(); ++i) add(static_cast<int>(i), places[i]);
    if (places.empty()) add(-1, {});
    return cards;
}

PixelRect box(Size size) {
    return {0, 0, static_cast<int>(size.width), static_cast<int>(size.height)};
}

void writeBox(json::Writer& writer, double x, double y, double width, double height) {
    writer.key("x").number(x).key("y").number(y).key("width").number(width).key("height").number(height);
}

void writeCard(json::Writer& writer, const DrawnCard& card, const Placement& placement, Size monitor) {
    const PixelRect at = placed(box(card.card.size), box(monitor), placement.anchor,
                                static_cast<int>(placement.margin.x), static_cast<int>(placement.margin.y));
    writer.beginObject().key("place").integer(card.place).key("id").string(card.design->id);
    writeBox(writer, at.x, at.y, at.width, at.height);
    writer.endObject();
}

// The desktop's own arithmetic, with points for pixels.
std::vector<ArrangedCard> arranged(const std::vector<DrawnCard>& cards, const std::vector<Monitor>& monitors) {
    std::vector<CardToArrange> toArrange;
    for (const DrawnCard& card : cards) toArrange.push_back(card.card);
    std::vector<Output> outputs;
    for (const Monitor& monitor : monitors)
        outputs.push_back({.name = monitor.name,
                           .primary = monitor.isMain,
                           .roomWidth = monitor.area.size.width,
                           .roomHeight = monitor.area.size.height});
    return arrange(toArrange, outputs);
}

}  // namespace

std::string desktopJson(const std::vector<Monitor>& monitors, const std::vector<Place>& places,
                        const std::vector<WidgetSpec>& specs) {
    const auto cards = drawnCards(places, specs);
    const auto where = arranged(cards, monitors);
    json::Writer writer;
    writer.beginObject().key("monitors").beginArray();
    for (const auto& [name, area, isMain] : monitors) {
        writer.beginObject().key("name").string(name).key("isMain").boolean(isMain);
        writeBox(writer, area.origin.x, area.origin.y, area.size.width, area.size.height);
        writer.key("cards").beginArray();
        for (const auto& [card, placement] : where)
            if (placement.output == name) writeCard(writer, cards[card], placement, area.size);
        writer.endArray().endObject();
    }
    writer.endArray().key("places").raw(PlacesJSON::encode(places)).key("designs").beginArray();
    for (const Place& place : places) {
        const WidgetSpec* const design = designAt(place, specs);
        writer.string(design ? design->id : "");
    }
    return writer.endArray().endObject().finish().value_or("{}");
}

}  // namespace orvel::designer
