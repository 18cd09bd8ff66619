// Where the host learns which cards to show.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/host/arrangement.h"
#include "platform/host/timeline.h"
#include "platform/ui/view.h"

namespace orvel {

struct CardOnShow {
    std::string key;  ///< identifies the card among the others, and from one look to the next
    View view;
    WidgetFamily family = WidgetFamily::systemSmall;
    CardPlace place = {};
    std::function<void()> clicked = {};  ///< absent: clicks go to the window below
};

class CardSource {
public:
    virtual ~CardSource() = default;

    /// The cards as of the last reload or look. Cards of the same place are arranged in this order.
    virtual std::vector<CardOnShow> cards() const = 0;

    /// Called when something that the source depends on may have changed.
    virtual void reload() = 0;
    /// Called when the next look is due, or when the clock or the zone has changed.
    virtual void look() = 0;
    virtual Date nextLook() const = 0;

    /// Folders and files whose change is a reason to reload.
    virtual std::vector<std::filesystem::path> dependencies() const = 0;
};

}  // namespace orvel
