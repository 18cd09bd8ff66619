// The system's symbol set: outlines by dotted names such as "flag.fill". The set is part of the binary.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/render/symbol_outline.h"

namespace orvel {

class Symbols {
public:
    Symbols();
    ~Symbols();

    /// Names are data from anywhere: whatever isn't a name of the set is just not in it.
    bool contains(std::string_view name) const { return outline(name) != nullptr; }

    /// The outline, or null. It lasts until the next call; an object belongs to one thread.
    const SymbolOutline* outline(std::string_view name) const;

    /// Every name that can be drawn, in alphabetical order.
    std::vector<std::string> names() const;

    /// The name that can be drawn and that this one was probably meant to be, if there is one.
    std::optional<std::string> nearest(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
