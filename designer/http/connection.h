// One client of the server: requests in, answers out, one after the other, within the limits.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "designer/http/server.h"
#include "platform/foundation/descriptor.h"

namespace orvel::designer {

class HttpConnection {
public:
    using Clock = std::chrono::steady_clock;

    /// A socket that doesn't block. The handlers must outlive this.
    HttpConnection(Descriptor socket, const HttpServer::Handlers& handlers);

    /// Reads what is there, answers what is complete, writes what the client takes. False: it is over.
    bool proceed();

    void sendEvent(const std::string& text);
    bool isStream() const { return isStream_; }
    bool hasOutput() const { return !output_.empty(); }
    bool wantsInput() const { return !hasEnded_ && input_.size() < http_limits::headBytes + http_limits::bodyBytes; }
    /// Since when the client has owed something, or been idle.
    Clock::time_point since() const { return since_; }
    bool isOverdue() const;

private:
    bool receive();
    bool answerNext();
    void respond(const HttpResponse& response, bool isLast);
    bool transmit();

    Descriptor socket_;
    const HttpServer::Handlers& handlers_;
    std::string input_;
    std::string output_;
    std::optional<HttpRequest> request_;  ///< whose body is on its way
    Clock::time_point since_ = Clock::now();
    bool isStream_ = false;
    bool isClosing_ = false;  ///< once the output is out
    bool hasEnded_ = false;   ///< nothing more comes in
};

}  // namespace orvel::designer
