#include "platform/host/card_board.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/host/card.h"
#include "platform/ui/view_words.h"

namespace orvel {

CardBoard::CardBoard(Names names, const Localizer& localizer, std::function<void(const std::string&)> notice)
    : names_(std::move(names)),
      localizer_(localizer),
      notice_(std::move(notice)),
      drawing_(localizer, [this](const std::string& sentence) {
          if (saysWhy_ && notice_) notice_(sentence);
      }) {}

void CardBoard::prepare(const std::vector<CardOnShow>& cards) {
    prepared_.clear();
    for (const CardOnShow& card : cards) prepared_.push_back({card.view, card.family});
    drawing_.prepare(prepared_);
}

void CardBoard::show(const std::vector<CardOnShow>& cards, WindowSystem& windows) {
    std::vector<CardToArrange> places;
    for (const CardOnShow& card : cards) places.push_back({displaySize(card.family), card.place});
    const std::vector<Output> outputs = windows.outputs();

    std::set<std::string> wanted;
    std::vector<std::pair<std::string, ArrangedCard>> arranged;
    for (ArrangedCard& card : arrange(places, outputs)) {
        // Each surface of a card on all outputs has its own key.
        const bool isOneOfSeveral = places[card.card].place.output.which == OutputChoice::Which::all;
        std::string key = cards[card.card].key + (isOneOfSeveral ? '\0' + *card.placement.output : "");
        wanted.insert(key);
        arranged.emplace_back(std::move(key), std::move(card));
    }
    std::erase_if(shown_, [&](const auto& shown) { return !wanted.contains(shown.first); });
    // All changes are known before the first card is drawn, so that one child process draws them all.
    for (const auto& [key, card] : arranged) update(key, cards[card.card], card.placement);
    for (const auto& [key, card] : arranged) {
        Shown& shown = shown_.at(key);
        if (!shown.surface)
            shown.surface = windows.open(request(key, shown));
        else if (!shown.isDrawn)
            shown.surface->contentChanged(title(shown.view));
    }
}

// A surface stays if it can become what is wanted.
void CardBoard::update(const std::string& key, const CardOnShow& card, const Placement& placement) {
    const auto found = shown_.find(key);
    const bool takesClicks = static_cast<bool>(card.clicked);
    const bool canStay = found != shown_.end() && found->second.family == card.family &&
                         found->second.placement.output == placement.output &&
                         found->second.placement.layer == placement.layer && found->second.takesClicks == takesClicks;
    if (!canStay) {
        shown_.erase(key);
        shown_.emplace(key, Shown{card.view, card.family, placement, takesClicks, card.clicked});
        return;
    }
    Shown& shown = found->second;
    shown.clicked = card.clicked;
    if (shown.placement != placement) shown.surface->move(placement.anchor, placement.margin);
    shown.placement = placement;
    if (!(shown.view == card.view)) shown.isDrawn = false;
    shown.view = card.view;
}

// The surface may ask for its pixels at once.
SurfaceRequest CardBoard::request(const std::string& key, const Shown& shown) {
    const Size points = displaySize(shown.family);
    SurfaceRequest request{.width = points.width,
                           .height = points.height,
                           .cornerRadius = cornerRadius,
                           .placement = shown.placement,
                           .program = names_.program,
                           .title = title(shown.view),
                           .draw = [this, key](const PixelBuffer& pixels) { return draw(key, pixels); }};
    if (shown.takesClicks) request.clicked = [this, key] { shown_.at(key).clicked(); };
    return request;
}

bool CardBoard::draw(const std::string& key, const PixelBuffer& pixels) {
    Shown& shown = shown_.at(key);
    shown.isDrawn = drawPrepared(shown, pixels);
    if (!shown.isDrawn) {  // not prepared, or prepared for too long
        prepared_ = {{shown.view, shown.family}};
        for (const auto& [otherKey, other] : shown_)
            if (!other.isDrawn && otherKey != key) prepared_.push_back({other.view, other.family});
        drawing_.prepare(prepared_);
        shown.isDrawn = drawPrepared(shown, pixels);
    }
    const bool areAllDrawn = std::ranges::all_of(shown_, [](const auto& each) { return each.second.isDrawn; });
    if (areAllDrawn) stopDrawing();
    return shown.isDrawn;
}

bool CardBoard::drawPrepared(const Shown& shown, const PixelBuffer& pixels) {
    const auto found = std::ranges::find_if(prepared_, [&](const CardPicture& picture) {
        return picture.family == shown.family && picture.view == shown.view;
    });
    if (found == prepared_.end()) return false;
    const bool isDrawn = drawing_.draw(static_cast<std::size_t>(found - prepared_.begin()), pixels);
    saysWhy_ = isDrawn;
    return isDrawn;
}

void CardBoard::stopDrawing() {
    drawing_.finish();
    prepared_.clear();
}

std::string CardBoard::title(const View& view) const {
    std::string said = words(view, localizer_);
    return said.empty() ? names_.untitled : said;
}

}  // namespace orvel
