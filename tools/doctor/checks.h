// Checks what cards need of the machine: each says what it found, and what to do about what is missing.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/foundation/platform.h"

namespace orvel::tools {

enum class Health {
    good,
    note,     ///< cards are shown, though not as well as they could be
    problem,  ///< something won't work
};

/// "good", "note", "problem".
std::string_view name(Health health);

struct Finding {
    Health health;
    std::string found;        ///< one line without a full stop
    std::string advice = {};  ///< likewise; empty when all is good
};

struct Check {
    std::string_view name;
    Finding (*look)(const Platform& platform);
};

/// In the order in which things depend on each other.
std::span<const Check> checks();

}  // namespace orvel::tools
