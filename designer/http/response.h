// Answers of the designer's server.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel::designer {

struct HttpResponse {
    int status = 200;
    std::string type = "application/json";
    std::string body = {};
    std::vector<std::pair<std::string, std::string>> headers = {};
    bool isEventStream = false;  ///< stays open for events; `body` are the first ones
};

/// {"reason":…,"field":…}, the field only when there is one.
HttpResponse refusal(int status, std::string_view reason, std::string_view field = {});

enum class Connection { keep, close };

/// The response as it is sent (RFC 9112), with the headers that every response has: a browser caches nothing, loads
/// nothing from elsewhere, and shows the page in no frame.
std::string serialized(const HttpResponse& response, Connection connection);

}  // namespace orvel::designer
