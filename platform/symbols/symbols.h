// The system's symbol set: outlines by dotted names such as "flag.fill". The set is part of the binary.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/symbol_set.h"

namespace orvel {

class Symbols final : public SymbolSet {
public:
    Symbols();
    ~Symbols() override;

    const SymbolOutline* outline(std::string_view name) const override;

    /// Every name that can be drawn, in alphabetical order.
    std::vector<std::string> names() const;

    /// The names that match the words of a search: first the name itself, then names that have these words, then names
    /// for everyday words such as "home" or "weather", then names that contain the text. Letter cases and separators
    /// don't matter; a name matches all of the words.
    std::vector<std::string> search(std::string_view words) const;

    /// The name that can be drawn and that this one was probably meant to be, if there is one.
    std::optional<std::string> nearest(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
