// A place in a text, as a person finds it in an editor.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvel {

struct TextPosition {
    std::size_t offset = 0;  ///< bytes before it
    std::size_t line = 1;    ///< from 1
    std::size_t column = 1;  ///< characters (code points), from 1

    /// "LINE:COLUMN"
    std::string text() const { return std::to_string(line) + ":" + std::to_string(column); }
};

/// Of a byte; of the text's end if it has fewer.
TextPosition textPosition(std::string_view text, std::size_t offset);

}  // namespace orvel
