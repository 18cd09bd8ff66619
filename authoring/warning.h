// What the author of a design should know although nothing has failed.
#pragma once

#include <string>
#include <vector>

namespace orvel {

struct Warning {
    std::string field;  ///< the member's name in JSON; also one that no design has
    std::string text;   ///< one line without a full stop
    /// What is wrong, and what of the design the text names: for whoever says it in another language. Empty where
    /// only this text says it.
    std::string name = {};
    std::vector<std::string> values = {};

    friend bool operator==(const Warning&, const Warning&) = default;
};

}  // namespace orvel
