// The designer, which is a program of its own.
#pragma once

#include <optional>
#include <string>

#include "platform/foundation/platform.h"
#include "tools/core/console.h"

namespace orvel::tools {

struct DesignChoices {
    std::optional<std::string> reference = {};
    bool printsAddress = false;
    std::optional<int> port = {};
};

/// Replaces this process by the designer; returns only when that fails.
Outcome<Done> design(const DesignChoices& choices, const Platform& platform, Console& console);

}  // namespace orvel::tools
