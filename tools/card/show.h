// A card as words, printed for people, programs and status bars.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/card/shown_card.h"

namespace orvel::tools {

enum class WordsForm { text, json, waybar };

struct ShowChoices {
    DesignChoice design = {};
    WordsForm form = WordsForm::text;
    bool follow = false;  ///< prints again whenever the words change, until the process is asked to end
};

/// Prints the card that the desktop would show, or the chosen one. A store that doesn't load is a failure after the
/// empty state's words; a bar gets the reason as its answer instead, since it shows nothing of a command that fails.
Outcome<Done> show(const ShowChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
