// A card as words, for terminals, screen readers and status bars.
#pragma once

#include <optional>
#include <string>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

/// The line that stands for the whole card: headline, percentage, or how many items.
std::string headlineWords(const WidgetSpec& spec, const Platform& platform);

/// Title, headline or percentage, secondary line, rows: a line each, without the empty ones.
std::string words(const WidgetSpec& spec, const Platform& platform);

enum class WordsForm { text, json, waybar };

/// Prints the first stored design, or the given one, in that form.
Outcome<Done> show(const std::optional<std::string>& design, WordsForm form, const Platform& platform,
                   Console& console);

}  // namespace orvel::tools
