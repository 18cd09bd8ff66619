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

    /// A socket that doesn't block. Handlers and limits must outlive this.
    HttpConnection(Descriptor socket, const HttpServer::Handlers& handlers, const HttpLimits& limits);

    /// Reads what is there, answers what is complete, writes what the client takes. False: it is over.
    bool proceed();

    void sendEvent(const std::string& text);
    bool isStream() const { return isStream_; }
    bool hasOutput() const { return !output_.empty(); }
    bool wantsInput() const { return !hasEnded_ && input_.size() < limits_.headBytes + limits_.bodyBytes; }
    /// Since when the client has owed something, or been idle.
    Clock::time_point since() const { return since_; }
    /// When it is dropped, unless the client does what it owes. A stream that has taken all may stay as it is.
    std::optional<Clock::time_point> deadline() const;

private:
    bool receive();
    bool answerNext();
    void respond(const HttpResponse& response, bool isLast);
    bool transmit();
    void endOutput();

    Descriptor socket_;
    const HttpServer::Handlers& handlers_;
    const HttpLimits& limits_;
    std::string input_;
    std::string output_;
    std::optional<HttpRequest> request_;  ///< whose body is on its way
    Clock::time_point since_ = Clock::now();
    bool isStream_ = false;
    bool isClosing_ = false;  ///< once the output is out; what still comes in is passed over
    bool isOutputEnded_ = false;
    bool hasEnded_ = false;  ///< nothing more comes in
};

}  // namespace orvel::designer
