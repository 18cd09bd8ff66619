// The cards of a person's desktop: the designs that have a place, as the store and the places file say. Both are
// followed live, and each is read once per change, however many cards there are.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/place.h"
#include "platform/foundation/platform.h"
#include "platform/host/card_source.h"

namespace orvel {

class PlacedCards final : public CardSource {
public:
    struct Choices {
        /// Shows only this place and ignores the places file. Absent: all places, or the first design if there are
        /// none.
        std::optional<Place> only = {};
        /// Called with one line when the store or the places can't be read; once for each reason.
        std::function<void(const std::string&)> trouble = {};
    };

    /// Reads both.
    PlacedCards(Choices choices, const Platform& platform);

    std::vector<CardOnShow> cards() const override { return cards_; }
    void reload() override;
    void look() override;
    Date nextLook() const override;
    std::vector<std::filesystem::path> dependencies() const override;

private:
    void readPlaces();
    void readStore();
    void build();
    void tell(std::string& told, const std::string& reason) const;

    Choices choices_;
    const Platform& platform_;
    std::vector<Place> places_;
    std::vector<WidgetSpec> specs_;
    std::vector<CardOnShow> cards_;
    std::string toldOfPlaces_;
    std::string toldOfStore_;
};

/// What a click on that place's card does; empty when clicks go to the window below.
std::function<void()> clickAction(const Place& place, const WidgetSpec* design);

}  // namespace orvel
