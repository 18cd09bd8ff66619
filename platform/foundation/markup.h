// Texts inside markup.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// The text as the content of an element in XML, HTML, or the markup of notifications and status bars: "&", "<" and ">"
/// become references (XML 1.0, 2.4). Not for the values of attributes.
std::string escapedForMarkup(std::string_view text);

}  // namespace orvel
