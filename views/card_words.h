// What a card says, in words: for the card itself, for screen readers and for status bars.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "platform/ui/localized.h"

namespace orvel {

/// The texts that the design's kind shows, from top to bottom of the card; what it doesn't show is absent.
struct CardWords {
    std::optional<std::string> headline = {};
    std::optional<std::int64_t> percent = {};
    std::string title;  ///< as the design has it; a card may show it in capitals
    std::optional<std::string> secondary = {};
    std::vector<std::string> rows = {};
};

/// A countdown's headline is measured from the clock at this moment.
CardWords cardWords(const WidgetSpec& spec, const Platform& platform);

/// A percentage as the card shows it.
LocalizedStringKey percentKey(std::int64_t percent);

/// What a card without a design says.
LocalizedStringKey emptyStateKey();

}  // namespace orvel
