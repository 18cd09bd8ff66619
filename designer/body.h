// What a page sends with its requests, as JSON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "designer/editing/workbench.h"

namespace orvel::designer {

struct Body {
    std::uint64_t revision = 0;           ///< of the draft that the fields were typed into
    std::vector<TypedField> fields = {};  ///< {"title":"Users","items":["Milk"],"primary":null}
    std::string id = {};
    std::string text = {};  ///< JSON as a text: a place, a design
    std::size_t to = 0;
    bool discards = false;
    bool inFront = false;
};

/// Absent unless the text is an object whose known members have the right types.
std::optional<Body> readBody(std::string json);

}  // namespace orvel::designer
