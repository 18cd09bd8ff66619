// What a card needs of the machine, each with what was found and what a person can do about it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/foundation/platform.h"

namespace orvel::tools {

enum class Health {
    good,
    note,     ///< the card shows, though not as well as it could
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
