#include "designer/http/connection.h"

#include <sys/socket.h>

#include <cerrno>

namespace orvel::designer {
namespace {

constexpr std::string_view headEnd = "\r\n\r\n";

}  // namespace

HttpConnection::HttpConnection(Descriptor socket, const HttpServer::Handlers& handlers, const HttpLimits& limits)
    : socket_(std::move(socket)), handlers_(handlers), limits_(limits) {}

bool HttpConnection::proceed() {
    if (!receive()) return false;
    do {
        if (!transmit()) return false;
    } while (!isClosing_ && !isStream_ && output_.empty() && answerNext());
    if (isClosing_ && output_.empty()) endOutput();
    return !(output_.empty() && hasEnded_);
}

// Reads a limited amount, so that others needn't wait long; the loop calls again for what is left in the socket.
bool HttpConnection::receive() {
    char bytes[16 << 10];
    for (int turn = 0; turn < 16 && wantsInput(); ++turn) {
        const ssize_t count = ::recv(socket_.get(), bytes, sizeof bytes, 0);
        if (count > 0) {
            if (input_.empty() && !request_ && output_.empty() && !isClosing_) since_ = Clock::now();
            if (!isStream_ && !isClosing_) input_.append(bytes, static_cast<std::size_t>(count));
            if (!request_ && input_.size() > limits_.headBytes) break;
        } else if (count == 0) {
            hasEnded_ = true;
        } else if (errno != EINTR) {
            return errno == EAGAIN || errno == EWOULDBLOCK;
        }
    }
    return true;
}

// Whether a request was answered.
bool HttpConnection::answerNext() {
    if (!request_) {
        const auto end = input_.find(headEnd);
        if (end == input_.npos || end + headEnd.size() > limits_.headBytes) {
            if (input_.size() <= limits_.headBytes) return false;
            respond(refusal(431, "the request's head is too long"), true);
            return true;
        }
        auto head = parseHead(std::string_view(input_).substr(0, end));
        input_.erase(0, end + headEnd.size());
        if (!head) {
            respond(refusal(head.failure().status, head.failure().reason), true);
            return true;
        }
        auto refused = handlers_.refuse(*head);
        if (!refused && head->bodyLength > limits_.bodyBytes)
            refused = refusal(413, "the request is larger than a design may be here, 1 MiB");
        if (refused) {
            respond(*refused, head->bodyLength > 0 || !head->keepsConnection);
            return true;
        }
        request_ = *std::move(head);
    }
    if (input_.size() < request_->bodyLength) return false;
    request_->body = input_.substr(0, request_->bodyLength);
    input_.erase(0, request_->bodyLength);
    const HttpRequest request = *std::exchange(request_, std::nullopt);
    respond(handlers_.answer(request), !request.keepsConnection);
    return true;
}

void HttpConnection::respond(const HttpResponse& response, bool isLast) {
    isStream_ = response.isEventStream;
    isClosing_ = isLast && !isStream_;
    if (isClosing_) input_.clear();
    output_ = serialized(response, isClosing_ ? Connection::close : Connection::keep);
    since_ = Clock::now();
}

bool HttpConnection::transmit() {
    while (!output_.empty()) {
        const ssize_t count = ::send(socket_.get(), output_.data(), output_.size(), MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
        output_.erase(0, static_cast<std::size_t>(count));
        if (output_.empty()) since_ = Clock::now();
    }
    return true;
}

// A client that still sends what it was refused would lose the answer if the socket were closed now.
void HttpConnection::endOutput() {
    if (!isOutputEnded_) ::shutdown(socket_.get(), SHUT_WR);
    isOutputEnded_ = true;
}

void HttpConnection::sendEvent(const std::string& text) {
    if (output_.size() + text.size() > limits_.eventBytesWaiting) {
        isStream_ = false;
        isClosing_ = true;
        output_.clear();
        return;
    }
    if (output_.empty()) since_ = Clock::now();
    output_ += text;
}

std::optional<HttpConnection::Clock::time_point> HttpConnection::deadline() const {
    if (hasOutput()) return since_ + limits_.forAnswer;
    if (isStream_) return std::nullopt;
    const bool isMidway = request_ || !input_.empty() || isClosing_;
    return since_ + (isMidway ? limits_.forRequest : limits_.idle);
}

}  // namespace orvel::designer
