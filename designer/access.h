// Who may ask the server for something: the person's own pages, and nobody else on the machine or the network. A page
// is opened with a secret in its address, which the browser then keeps as a cookie for this server. Host and Origin are
// checked, so that no other site's page gets in under another name or in the person's.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "designer/http/request.h"
#include "designer/http/response.h"

namespace orvel::designer {

class Access {
public:
    /// Makes the secret: 128 random bits in hexadecimal digits.
    Access();

    /// For the person's terminal and for files that only the person reads.
    std::string address(std::uint16_t port) const;
    /// Good for one visit: for a browser's command line, which every account of the machine can read.
    std::string addressForOneVisit(std::uint16_t port);

    /// Absent when the request may be answered.
    std::optional<HttpResponse> refuse(const HttpRequest& request, std::uint16_t port);
    /// The page's own header that makes the browser keep the secret.
    std::pair<std::string, std::string> cookie(std::uint16_t port) const;

private:
    std::string secret_;
    std::set<std::string> visits_;
};

}  // namespace orvel::designer
