#include "designer/access.h"

#include <sys/random.h>

#include <cstdlib>

namespace orvel::designer {
namespace {

std::string randomHex() {
    unsigned char bytes[16];
    if (::getrandom(bytes, sizeof bytes, 0) != static_cast<ssize_t>(sizeof bytes)) std::abort();
    std::string text;
    for (const unsigned char byte : bytes) {
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 15];
    }
    return text;
}

// In a time that doesn't tell how much is right.
bool isSame(std::string_view given, std::string_view secret) {
    unsigned difference = given.size() != secret.size();
    for (std::size_t i = 0; i < secret.size(); ++i)
        difference |=
            static_cast<unsigned char>(i < given.size() ? given[i] : 0) ^ static_cast<unsigned char>(secret[i]);
    return difference == 0;
}

std::string host(std::uint16_t port) {
    return "127.0.0.1:" + std::to_string(port);
}

// Cookies don't tell ports apart.
std::string cookieName(std::uint16_t port) {
    return "orvel-designer-" + std::to_string(port);
}

}  // namespace

Access::Access() : secret_(randomHex()) {}

std::string Access::address(std::uint16_t port) const {
    return "http://" + host(port) + "/?token=" + secret_;
}

std::string Access::addressForOneVisit(std::uint16_t port) {
    return "http://" + host(port) + "/?token=" + *visits_.insert(randomHex()).first;
}

std::optional<HttpResponse> Access::refuse(const HttpRequest& request, std::uint16_t port) {
    if (request.header("host") != host(port)) return refusal(421, "this server is called " + host(port));
    const bool isPost = request.method == "POST";
    if (!isPost && request.method != "GET") {
        HttpResponse response = refusal(405, "GET and POST are understood");
        response.headers.emplace_back("Allow", "GET, POST");
        return response;
    }
    const std::string_view origin = request.header("origin");
    if (origin != "http://" + host(port) && (isPost || !origin.empty()))
        return refusal(403, "only the designer's own page may ask this");

    const std::string_view token = request.parameter("token");
    const bool isEntry = request.path == "/" && !isPost && !token.empty();
    if (isEntry && (visits_.erase(std::string(token)) > 0 || isSame(token, secret_))) return std::nullopt;
    const std::string_view site = request.header("sec-fetch-site");
    if (!site.empty() && site != "same-origin" && site != "none")
        return refusal(403, "only the designer's own page may ask this");
    if (!isSame(request.cookie(cookieName(port)), secret_))
        return refusal(403, "this address is no key to the designer, or was one for a single visit; call orvel design");
    if (isPost && request.header("content-type") != "application/json")
        return refusal(415, "a body is application/json");
    return std::nullopt;
}

std::pair<std::string, std::string> Access::cookie(std::uint16_t port) const {
    return {"Set-Cookie", cookieName(port) + "=" + secret_ + "; Path=/; HttpOnly; SameSite=Strict"};
}

}  // namespace orvel::designer
