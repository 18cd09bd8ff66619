// An icon font that is part of the binary. It is opened when it is first used.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/symbol_set.h"

namespace orvel {

class IconFont {
public:
    using Glyph = unsigned;
    static constexpr Glyph none = 0;

    /// The file's bytes must outlive the font. Its outlines are scaled about the middle of the em square.
    explicit IconFont(std::string_view bytes, double scale = 1);
    ~IconFont();

    Glyph named(const std::string& name);
    Glyph coded(char32_t codePoint);
    SymbolOutline outline(Glyph glyph);

    /// All of them; from then on `named` is fast.
    std::vector<std::string> glyphNames();

private:
    struct State;
    State& state();

    std::string_view bytes_;
    double scale_;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
