// What a feed's command says of its design: lines "field=value" as `orvel set` takes them, one JSON object of fields,
// or a single line, which is the card's main text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "authoring/field_texts.h"
#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"

namespace orvel {

struct FeedOutput {
    std::vector<Assignment> assignments = {};
    std::vector<std::string> unset = {};  ///< fields that become absent: null, or an empty list
    std::optional<std::string> mainText = std::nullopt;

    /// Whether it sets or unsets that field.
    bool names(WidgetField field) const;
};

/// Reads what a command printed. The failure says what is wrong, and where.
Outcome<FeedOutput> readOutput(const std::string& text);

/// The assignment of a card's main text to the kind's main field: a ring's portion, a list's row, and so on.
Assignment mainTextOf(WidgetKind kind, const std::string& text);

/// The kind of a new design when the output doesn't say which: one whose main field it names, and of those the one
/// that shows most of what it names; the first of equally good ones.
WidgetKind likelyKind(const FeedOutput& output);

}  // namespace orvel
