// Requests of HTTP/1.1 (RFC 9112), as far as a page's own server needs them: bodies with a length, no trailers, no
// folded lines. What is ambiguous is refused.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/result.h"

namespace orvel::designer {

struct HttpRequest {
    std::string method;
    std::string path;                                 ///< percent-decoded, begins with '/'
    std::map<std::string, std::string> query = {};    ///< decoded; of a repeated name the first counts
    std::map<std::string, std::string> headers = {};  ///< by names in small letters
    std::size_t bodyLength = 0;
    bool keepsConnection = true;
    std::string body = {};

    /// Empty when there is no such header.
    std::string_view header(const std::string& name) const;
    std::string_view parameter(const std::string& name) const;
    /// A cookie's value (RFC 6265); empty when there is no such cookie.
    std::string_view cookie(std::string_view name) const;
};

/// Why a request is refused: a status of RFC 9110 and a line for a person.
struct BadRequest {
    int status;
    std::string reason;
};

/// The request's line and headers, up to and without the empty line that ends them.
Result<HttpRequest, BadRequest> parseHead(std::string_view head);

/// Absent for a text with a wrong or a NUL escape.
std::optional<std::string> percentDecoded(std::string_view text);
/// As a parameter's value. All but letters, digits and "-" is escaped.
std::string percentEncoded(std::string_view text);

}  // namespace orvel::designer
