// A small HTTP server for this machine alone: it listens on 127.0.0.1, on one thread, in the event loop. Heads, bodies,
// connections and the time that a client takes are limited; who exceeds a limit is answered if that can be, and
// dropped.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "designer/http/request.h"
#include "designer/http/response.h"
#include "platform/events/event_loop.h"
#include "platform/foundation/outcome.h"

namespace orvel::designer {

/// Limits of what clients can use up.
struct HttpLimits {
    std::size_t headBytes = 16 << 10;
    std::size_t bodyBytes = 1 << 20;
    std::size_t connections = 64;               ///< one more takes the place of the longest silent one
    std::size_t eventBytesWaiting = 256 << 10;  ///< of one stream; a client that lags further is dropped
    std::chrono::milliseconds forRequest = std::chrono::seconds(10);  ///< from its first byte to its last
    std::chrono::milliseconds forAnswer = std::chrono::seconds(30);   ///< until the client has taken it
    std::chrono::milliseconds idle = std::chrono::seconds(60);        ///< between requests
};

class HttpServer {
public:
    struct Handlers {
        /// Called when a request's head has arrived, before its body is read. A response refuses the request.
        std::function<std::optional<HttpResponse>(const HttpRequest&)> refuse;
        std::function<HttpResponse(const HttpRequest&)> answer;
        /// Called when the number of open event streams has changed.
        std::function<void(std::size_t)> streamsChanged;
    };

    /// Port 0 is any free one.
    static Outcome<std::unique_ptr<HttpServer>> listen(EventLoop& loop, std::uint16_t port, Handlers handlers,
                                                       const HttpLimits& limits = {});
    ~HttpServer();

    std::uint16_t port() const;
    /// To all event streams (HTML's server-sent events).
    void send(std::string_view event, std::string_view data);

private:
    class State;
    explicit HttpServer(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace orvel::designer
