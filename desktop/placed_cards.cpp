#include "desktop/placed_cards.h"

#include <map>
#include <utility>

#include "desktop/places.h"
#include "model/store_files.h"
#include "platform/foundation/installation.h"
#include "platform/host/session_launch.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

bool isAddress(const std::string& click) {
    const auto colon = click.find(':');
    if (colon == std::string::npos || colon < 2) return false;
    for (const char c : click.substr(0, colon))
        if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' || c == '-' ||
              c == '.'))
            return false;
    return true;
}

}  // namespace

PlacedCards::PlacedCards(Choices choices, const Platform& platform)
    : choices_(std::move(choices)), platform_(platform) {
    reload();
}

void PlacedCards::reload() {
    readPlaces();
    readStore();
    build();
}

void PlacedCards::look() {
    build();
}

Date PlacedCards::nextLook() const {
    return nextWholeMinute(platform_.clock.now());
}

std::vector<std::filesystem::path> PlacedCards::dependencies() const {
    std::vector<std::filesystem::path> paths{StoreFiles::folder(platform_)};
    if (!choices_.only) paths.push_back(placesFile(platform_));
    return paths;
}

// Places that can't be read stay as they were.
void PlacedCards::readPlaces() {
    if (choices_.only) {
        places_ = {*choices_.only};
        return;
    }
    auto places = orvel::readPlaces(platform_);
    tell(toldOfPlaces_, places ? "" : places.failure().reason);
    if (places) places_ = *std::move(places);
}

// So do the designs of placed cards. The single card without a place shows no design then, as the widget does.
void PlacedCards::readStore() {
    auto specs = StoreFiles::readList(platform_);
    const bool isMissing = !specs && specs.failure().isMissing();
    tell(toldOfStore_, specs || isMissing ? "" : specs.failure().message());
    if (specs)
        specs_ = *std::move(specs);
    else if (isMissing || places_.empty())
        specs_.clear();
}

void PlacedCards::build() {
    cards_.clear();
    const Date now = platform_.clock.now();
    // A click on the card that invites to make a design opens the designer.
    const Place inviting{.click = "design"};
    // A card is the same whichever others come and go; one design may have several.
    std::map<std::string, int> cardsOfDesign;
    const auto add = [&](const Place& place, const WidgetSpec* design) {
        const WidgetEntry entry{now, design ? std::optional(*design) : std::nullopt};
        const std::string reference = text(place.design);
        cards_.push_back({std::to_string(++cardsOfDesign[reference]) + ' ' + reference,
                          OrvelWidget::content(entry, platform_), place.family, place.place,
                          clickAction(design ? place : inviting, design)});
    };
    if (places_.empty()) {
        const Place first;
        return add(first, designAt(first, specs_));
    }
    const bool showsEmptyState = choices_.only && choices_.only->design == PlacedDesign(DesignPosition{1});
    for (const Place& place : places_) {
        const WidgetSpec* const design = designAt(place, specs_);
        if (design || (showsEmptyState && specs_.empty())) add(place, design);
    }
}

void PlacedCards::tell(std::string& told, const std::string& reason) const {
    if (told != reason && !reason.empty() && choices_.trouble) choices_.trouble(reason);
    told = reason;
}

std::function<void()> clickAction(const Place& place, const WidgetSpec* design) {
    if (!place.click) return {};
    if (*place.click == "design") {
        std::vector<std::string> command{installedPrograms() / "orvel", "design"};
        if (design) command.push_back(design->id);
        return [command] { launchInSession(command); };
    }
    if (isAddress(*place.click)) return [address = *place.click] { openInSession(address); };
    return [command = *place.click] { launchInSession({"sh", "-c", command}); };
}

}  // namespace orvel
