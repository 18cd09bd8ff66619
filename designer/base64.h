// Bytes as base64 text (RFC 4648).
#pragma once

#include <string>
#include <string_view>

namespace orvel::designer {

std::string base64(std::string_view bytes);

}  // namespace orvel::designer
