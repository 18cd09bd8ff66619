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

    /// The names that go with what a person calls them: best first the name itself, then those that have the words,
    /// then those of everyday words such as "home" or "weather", then those that contain the text. Letter cases and
    /// separators don't matter; a name goes with all words.
    std::vector<std::string> search(std::string_view words) const;

    /// The name that can be drawn and that this one was probably meant to be, if there is one.
    std::optional<std::string> nearest(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
