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

constexpr const char* cookieName = "orvel-designer";

}  // namespace

Access::Access() : secret_(randomHex()), folder_('/' + randomHex() + '/') {}

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

    const HttpResponse noKey =
        refusal(403, "this address is no key to the designer, or was one for a single visit; call orvel design");
    if (request.path == "/") {
        const std::string_view token = request.parameter("token");
        const bool isVisit = !isPost && visits_.erase(std::string(token)) > 0;
        if (!isVisit && !isSame(token, secret_)) return noKey;
    } else {
        const std::string_view site = request.header("sec-fetch-site");
        if (!site.empty() && site != "same-origin" && site != "none")
            return refusal(403, "only the designer's own page may ask this");
        if (!isSame(request.path.substr(0, folder_.size()), folder_)) return noKey;
        if (!isSame(request.cookie(cookieName), secret_)) return noKey;
    }
    if (isPost && request.header("content-type") != "application/json")
        return refusal(415, "a body is application/json");
    return std::nullopt;
}

// Not by a redirect: when another site's link led here, the browser would go on without the cookie.
HttpResponse Access::entrance(const HttpRequest& request) const {
    const std::string_view design = request.parameter("design");
    const std::string page = folder_ + (design.empty() ? "" : "?design=" + percentEncoded(design));
    return {200,
            "text/html; charset=utf-8",
            "<!doctype html><title>Orvel</title><link rel=\"icon\" href=\"" + folder_ +
                "icon.svg\"><meta http-equiv=\"refresh\" content=\"0; url=" + page + "\"><a href=\"" + page +
                "\">Orvel</a>\n",
            {{"Set-Cookie",
              std::string(cookieName) + '=' + secret_ + "; Path=" + folder_ + "; HttpOnly; SameSite=Strict"}}};
}

HttpRequest Access::withinFolder(HttpRequest request) const {
    request.path.erase(0, folder_.size() - 1);
    return request;
}

}  // namespace orvel::designer
