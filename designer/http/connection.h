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

    /// `socket` must not block. Handlers and limits must outlive the connection.
    HttpConnection(Descriptor socket, const HttpServer::Handlers& handlers, const HttpLimits& limits);

    /// Reads what is there, answers what is complete, and writes what the client takes. False when the connection is
    /// over.
    bool proceed();

    void sendEvent(const std::string& text);
    bool isStream() const { return isStream_; }
    bool hasOutput() const { return !output_.empty(); }
    bool wantsInput() const { return !hasEnded_ && input_.size() < limits_.headBytes + limits_.bodyBytes; }
    /// When the client began to be late with something, or idle.
    Clock::time_point since() const { return since_; }
    /// When it is dropped unless the client does its part. Absent for an event stream that has taken everything.
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
    std::optional<HttpRequest> request_;  ///< its body hasn't arrived completely
    Clock::time_point since_ = Clock::now();
    bool isStream_ = false;
    bool isClosing_ = false;  ///< after the output is written; further input is ignored
    bool isOutputEnded_ = false;
    bool hasEnded_ = false;  ///< the client sends nothing more
};

}  // namespace orvel::designer
