// What the author of a design should know although nothing has failed.
#pragma once

#include <string>

namespace orvel {

struct Warning {
    std::string field;  ///< the member's name in JSON; also one that no design has
    std::string text;   ///< one line without a full stop

    friend bool operator==(const Warning&, const Warning&) = default;
};

}  // namespace orvel
