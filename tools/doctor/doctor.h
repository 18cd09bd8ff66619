// Prints what this machine has for the cards, and what to do about what is missing.
#pragma once

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

enum class DoctorForm { text, json };

/// Prints what every check finds. A problem is a failure; a note isn't.
Outcome<Done> doctor(DoctorForm form, const Platform& platform, Console& console);

}  // namespace orvel::tools
