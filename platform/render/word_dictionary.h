// Finds words in scripts that are written without blanks between them, with ICU's dictionaries where ICU is installed.
// ICU is loaded when such a text is first drawn. Private to this folder.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace orvel {

/// Where a line may end inside a text of Khmer, Lao or Burmese, as indices of code units; none without ICU.
std::vector<std::size_t> dictionaryBreaks(std::u16string_view text);

}  // namespace orvel
