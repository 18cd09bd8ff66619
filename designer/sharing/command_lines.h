// A design as command lines of a POSIX shell, to be taken elsewhere or into a script.
#pragma once

#include <string>
#include <string_view>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// The text as one word, whatever is in it but NUL.
std::string shellWord(std::string_view text);

/// Stores the same design under an id of its own. Options where they can say all of it, and else its record as JSON.
std::string addLine(const WidgetSpec& spec, const Platform& platform);

/// How a script keeps the card's main field current; `"$(command)"` stands for what it has to say.
struct UpdateLines {
    std::string set;  ///< the stored design
    std::string add;  ///< also where the design isn't stored yet
};
UpdateLines updateLines(const WidgetSpec& spec);

}  // namespace orvel::designer
