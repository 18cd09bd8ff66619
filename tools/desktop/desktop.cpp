#include "tools/desktop/desktop.h"

#include "authoring/designs.h"
#include "authoring/references.h"
#include "desktop/placed_cards.h"
#include "desktop/sole_service.h"
#include "feeds/feeds.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "platform/host/desktop.h"
#include "platform/host/session_launch.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/desktop/reference.h"
#include "tools/feeds/beside.h"

namespace orvel::tools {
namespace {

// The design's place as it would be with these choices alone.
Outcome<Place> onlyPlace(const PlaceChoices& choices, const Platform& platform) {
    Place only;
    if (!choices.reference.empty()) {
        auto design = placedDesign(choices.reference, platform);
        if (!design) return design.failure();
        only.design = *std::move(design);
    }
    choices.applyTo(only);
    return only;
}

// The placed cards, and the feeds that keep them current as soon as there are any.
class CardsWithFeeds final : public CardSource {
public:
    CardsWithFeeds(PlacedCards& cards, const Platform& platform)
        : cards_(cards), feedsFile_(feedsFile(platform)), feeds_(platform) {}

    std::vector<CardOnShow> cards() const override { return cards_.cards(); }
    void reload() override {
        cards_.reload();
        feeds_.serve();
    }
    void look() override { cards_.look(); }
    Date nextLook() const override { return cards_.nextLook(); }
    std::vector<std::filesystem::path> dependencies() const override {
        auto paths = cards_.dependencies();
        paths.push_back(feedsFile_);
        return paths;
    }

private:
    PlacedCards& cards_;
    std::filesystem::path feedsFile_;
    FeedsBeside feeds_;
};

}  // namespace

bool PlaceChoices::isEmpty() const {
    return reference.empty() && !family && !anchor && !margin && !output && !layer && !click;
}

void PlaceChoices::applyTo(Place& place) const {
    place.family = family.value_or(place.family);
    place.place.anchor = anchor.value_or(place.place.anchor);
    place.place.margin = margin.value_or(place.place.margin);
    place.place.output = output.value_or(place.place.output);
    place.place.layer = layer.value_or(place.place.layer);
    if (click) place.click = *click == "none" ? std::nullopt : click;
}

Outcome<Done> desktop(const PlaceChoices& choices, const Platform& platform, Console& console) {
    const auto notice = [&](const std::string& sentence) { say(sentence, console); };
    PlacedCards::Choices shown{.trouble = [&](const std::string& reason) {
        notice(reason);
        notifyInSession("Orvel", reason);
    }};
    std::variant<Descriptor, OtherProcess> sole;
    if (choices.isEmpty()) {
        sole = becomeSoleService();
        if (const auto* const other = std::get_if<OtherProcess>(&sole)) {
            notice(sentence("your cards are on this desktop already, shown by process {0}", other->number));
            return Done{};
        }
    } else {
        auto only = onlyPlace(choices, platform);
        if (!only) return only.failure();
        if (!choices.reference.empty()) tellIfNotStored(only->design, platform, console);
        shown.only = *std::move(only);
    }
    PlacedCards cards(std::move(shown), platform);
    CardsWithFeeds withFeeds(cards, platform);
    CardSource& source = choices.isEmpty() && !choices.withoutFeeds ? static_cast<CardSource&>(withFeeds) : cards;
    const auto ended = showOnDesktop(source, {.program = "orvel-widget", .untitled = "Orvel", .notice = notice});
    if (!ended) return Failure{ended.failure().reason};
    return Done{};
}

Outcome<Done> outputs(OutputsForm form, Console& console) {
    EventLoop loop;
    const auto windows = openWindowSystem(loop);
    if (!windows) return Failure{windows.failure().reason};
    const std::vector<Output> outputs = (*windows)->outputs();
    if (form == OutputsForm::names) {
        for (const Output& output : outputs) console.out << unicode::onOneLine(output.name) << '\n';
        return Done{};
    }
    json::Writer writer;
    writer.beginArray();
    for (const Output& output : outputs) {
        writer.beginObject().key("name").string(output.name);
        writer.key("widthPx").integer(output.area.width).key("heightPx").integer(output.area.height);
        writer.key("scale").number(output.scale).endObject();
    }
    writer.endArray();
    return printJson(writer.finish(), toTranslate("an output"), console);
}

}  // namespace orvel::tools
