// Who may ask the server for something: the person's own pages, and nobody else on the machine or the network. A page
// is opened with a secret in its address, which the browser then keeps as a cookie. A browser shows a host's cookies to
// all of its ports, also to those of other accounts; so the cookie is for a folder alone whose name they can't know.
// Host and Origin are checked, so that no other site's page gets in under another name or in the person's.
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
    /// Makes the secrets: 128 random bits each, in hexadecimal digits.
    Access();

    /// The address for the person's terminal, and for files that only the person can read.
    std::string address(std::uint16_t port) const;
    /// An address that works for one visit: for a browser's command line, which every account of the machine can read.
    std::string addressForOneVisit(std::uint16_t port);

    /// The refusal; absent when the request may be answered.
    std::optional<HttpResponse> refuse(const HttpRequest& request, std::uint16_t port);
    /// The answer to a request for the address: the browser keeps the secret and goes on to the page.
    HttpResponse entrance(const HttpRequest& request) const;
    /// A request that isn't refused, as it is within the folder.
    HttpRequest withinFolder(HttpRequest request) const;

private:
    std::string secret_;
    std::string folder_;  ///< /0123…/
    std::set<std::string> visits_;
};

}  // namespace orvel::designer
