// Any bytes as a client of the designer's server: an answer is whole, and however the bytes are cut into pieces, it is
// the same. A head that is understood means one thing only.
#include <fuzzer/FuzzedDataProvider.h>
#include <sys/socket.h>

#include <algorithm>
#include <string>

#include "designer/http/connection.h"
#include "fuzz/expect.h"

using namespace orvel;
using namespace orvel::designer;

namespace {

// All that the server sends when it gets these pieces, one after the other.
template <class NextPiece>
std::string answers(NextPiece nextPiece) {
    static const HttpServer::Handlers handlers{
        [](const HttpRequest& request) {
            return request.path == "/no" ? std::optional(refusal(403, "no")) : std::nullopt;
        },
        [](const HttpRequest& request) {
            return HttpResponse{200, "text/plain", request.method + request.path + request.body};
        },
        {}};
    static const HttpLimits limits{.headBytes = 256, .bodyBytes = 64};
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
    const Descriptor client(ends[0]);
    HttpConnection connection(Descriptor(ends[1]), handlers, limits);
    std::string received;
    char bytes[4096];
    const auto receive = [&] {
        for (ssize_t count = 0; (count = ::recv(client.get(), bytes, sizeof bytes, 0)) > 0;)
            received.append(bytes, static_cast<std::size_t>(count));
    };
    for (std::string piece = nextPiece(); !piece.empty(); piece = nextPiece()) {
        if (::send(client.get(), piece.data(), piece.size(), MSG_NOSIGNAL) < 0) break;
        if (!connection.proceed()) break;
        receive();
    }
    ::shutdown(client.get(), SHUT_WR);
    for (int i = 0; i < 100 && connection.proceed(); ++i) receive();
    receive();
    return received;
}

void checkHead(const std::string& text) {
    const auto head = parseHead(text);
    if (!head) {
        fuzz::expect(head.failure().status == 400 || head.failure().status == 501, "a client's fault has its status");
        return;
    }
    fuzz::expect(head->path.starts_with('/'), "a path begins with a slash");
    const auto isDoubtful = [](char c) { return c == '\0' || c == '\r' || c == '\n'; };
    fuzz::expect(std::ranges::none_of(head->path + head->method, isDoubtful), "no line ends within a path");
    for (const auto& [name, value] : head->headers) {
        fuzz::expect(!name.empty() && std::ranges::none_of(name + value, isDoubtful), "no line ends within a header");
        fuzz::expect(std::ranges::none_of(name, [](char c) { return c >= 'A' && c <= 'Z'; }), "names in small letters");
    }
    const bool hasLength = head->headers.contains("content-length");
    fuzz::expect(hasLength || head->bodyLength == 0, "a body has a length");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    FuzzedDataProvider bytes(data, size);
    const std::size_t pieceSize = bytes.ConsumeIntegralInRange<std::size_t>(1, 40);
    const std::string text = bytes.ConsumeRemainingBytesAsString();
    checkHead(text);
    checkHead(text.substr(0, text.find("\r\n\r\n")));

    std::size_t at = 0;
    const std::string inPieces = answers([&] {
        const std::string piece = text.substr(std::min(at, text.size()), pieceSize);
        at += pieceSize;
        return piece;
    });
    bool isFirst = true;
    const std::string atOnce = answers([&] { return std::exchange(isFirst, false) ? text : std::string(); });
    fuzz::expect(inPieces == atOnce, "pieces don't matter");
    fuzz::expect(atOnce.empty() || atOnce.starts_with("HTTP/1.1 "), "an answer is one of HTTP");
    return 0;
}
