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

/// Prints the card that the desktop would show, or the chosen one. When the store isn't valid, prints the words of the
/// card that the desktop shows meanwhile, and fails. For a status bar, the reason is printed as the answer instead,
/// since a bar ignores the output of a failed command.
Outcome<Done> show(const ShowChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
