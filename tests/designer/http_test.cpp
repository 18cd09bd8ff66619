#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <vector>

#include "designer/http/server.h"
#include "platform/events/timer.h"
#include "platform/foundation/descriptor.h"

namespace orvel::designer {
namespace {

using namespace std::chrono_literals;

// A client on the same thread as the server. Its calls never block; the event loop runs between them.
class Client {
public:
    explicit Client(std::uint16_t port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    /// Sends as much as the system takes now; returns how much that is.
    std::size_t send(std::string_view text) {
        const ssize_t count = ::send(socket_.get(), text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    /// Everything received so far.
    const std::string& received() {
        char bytes[16 << 10];
        ssize_t count = 0;
        while ((count = ::recv(socket_.get(), bytes, sizeof bytes, MSG_DONTWAIT)) > 0)
            received_.append(bytes, static_cast<std::size_t>(count));
        if (count == 0 || (count < 0 && errno == ECONNRESET)) isDropped_ = true;
        return received_;
    }
    bool isDropped() {
        received();
        return isDropped_;
    }
    bool hasStatus(const std::string& status) { return received().starts_with("HTTP/1.1 " + status); }

private:
    Descriptor socket_;
    std::string received_;
    bool isDropped_ = false;
};

class Serving : public testing::Test {
protected:
    void serve(const HttpLimits& limits) {
        auto listening =
            HttpServer::listen(loop, 0,
                               {[](const HttpRequest& request) {
                                    return request.path == "/secret" ? std::optional(refusal(403, "no")) : std::nullopt;
                                },
                                [this](const HttpRequest& request) {
                                    ++answers;
                                    if (request.path == "/events")
                                        return HttpResponse{200, "text/event-stream", "", {}, true};
                                    if (request.path == "/large")
                                        return HttpResponse{200, "text/plain", std::string(64 << 20, 'x')};
                                    return HttpResponse{200, "text/plain", request.method + request.body};
                                },
                                [this](std::size_t count) { streams = count; }},
                               limits);
        ASSERT_TRUE(listening);
        server = *std::move(listening);
    }

    Client client() { return Client(server->port()); }

    /// Runs the loop until the condition holds; false when it doesn't within a minute.
    template <class Condition>
    bool eventually(Condition isSo) {
        const auto end = std::chrono::steady_clock::now() + 60s;
        bool holds = false;
        DelayTimer again(loop, [&] {
            holds = isSo();
            if (holds || std::chrono::steady_clock::now() > end)
                loop.stop();
            else
                again.set(1ms);
        });
        again.set(0ms);
        loop.run();
        return holds;
    }

    void runFor(std::chrono::milliseconds time) {
        DelayTimer enough(loop, [&] { loop.stop(); });
        enough.set(time);
        loop.run();
    }

    bool isAnswered() {
        Client asking = client();
        asking.send("GET / HTTP/1.1\r\n\r\n");
        return eventually([&] { return asking.received().ends_with("GET"); });
    }

    EventLoop loop;
    std::unique_ptr<HttpServer> server;
    std::size_t streams = 0;
    int answers = 0;
};

TEST_F(Serving, ASilentClientIsDroppedAndAStreamStays) {
    serve({.forRequest = 50ms, .forAnswer = 50ms, .idle = 50ms});
    Client stream = client();
    stream.send("GET /events HTTP/1.1\r\n\r\n");
    ASSERT_TRUE(eventually([&] { return streams == 1; }));

    Client silent = client();
    Client idle = client();
    idle.send("GET / HTTP/1.1\r\n\r\n");
    Client withHalfAHead = client();
    withHalfAHead.send("GET / HT");
    Client withHalfABody = client();
    withHalfABody.send("POST / HTTP/1.1\r\nContent-Length: 10\r\n\r\nhalf");
    Client byteByByte = client();  // each byte comes in time, the request doesn't
    Client notReading = client();
    notReading.send("GET /large HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(eventually([&] { return silent.isDropped() && idle.isDropped(); }));
    EXPECT_TRUE(idle.hasStatus("200"));
    EXPECT_TRUE(eventually([&] { return withHalfAHead.isDropped() && withHalfABody.isDropped(); }));
    EXPECT_TRUE(eventually([&] {
        byteByByte.send("x");
        return byteByByte.isDropped();
    }));
    runFor(200ms);
    EXPECT_TRUE(eventually([&] { return notReading.isDropped(); }));
    EXPECT_LT(notReading.received().size(), std::size_t{64} << 20);

    server->send("changed", "7");
    EXPECT_TRUE(eventually([&] { return stream.received().ends_with("event: changed\ndata: 7\n\n"); }));
}

TEST_F(Serving, AStreamThatLagsIsDropped) {
    serve({.eventBytesWaiting = 1 << 10});
    Client lagging = client();
    lagging.send("GET /events HTTP/1.1\r\n\r\n");
    ASSERT_TRUE(eventually([&] { return streams == 1; }));
    const std::string event(1 << 20, 'x');
    EXPECT_TRUE(eventually([&] {
        server->send("changed", event);
        return streams == 0;
    }));
}

TEST_F(Serving, ManyClientsKeepNobodyOut) {
    serve({});
    Client stream = client();
    stream.send("GET /events HTTP/1.1\r\n\r\n");
    ASSERT_TRUE(eventually([&] { return streams == 1; }));
    std::vector<Client> crowd;
    for (int i = 0; i < 450; ++i) {  // with the server's ends, below the thousand descriptors of a process
        crowd.push_back(client());
        crowd.back().send("GET / HT");
    }
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(streams, 1u);
    EXPECT_TRUE(eventually([&] { return crowd.front().isDropped(); }));
}

TEST_F(Serving, WhatIsTooLargeIsRefusedAndTheAnswerArrives) {
    serve({.headBytes = 1 << 10, .bodyBytes = 1 << 10});
    struct Row {
        std::string head;
        std::string status;
    };
    for (const Row& row : {
             Row{"POST / HTTP/1.1\r\nContent-Length: 1073741824\r\n\r\n", "413"},
             Row{"POST /secret HTTP/1.1\r\nContent-Length: 1073741824\r\n\r\n", "403"},
             Row{"GET / HTTP/1.1\r\nX: ", "431"},
         }) {
        Client client = this->client();
        client.send(row.head);
        const std::string flood(1 << 20, 'x');
        std::size_t sent = 0;
        EXPECT_TRUE(eventually([&] {
            sent += client.send(flood);
            return sent > (32 << 20) && client.hasStatus(row.status);
        })) << row.head
            << sent;
        EXPECT_TRUE(isAnswered()) << "while it still sends";
    }
    EXPECT_EQ(answers, 3);
}

TEST_F(Serving, RequestsBehindOneAnotherAreAnsweredInTurn) {
    serve({});
    Client client = this->client();
    client.send(
        "POST / HTTP/1.1\r\nContent-Length: 3\r\n\r\noneGET / HTTP/1.1\r\n\r\n"
        "POST / HTTP/1.1\r\nContent-Length: 5\r\nConnection: close\r\n\r\nthreeGET / HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(eventually([&] { return client.isDropped(); }));
    const std::string& received = client.received();
    const auto one = received.find("POSTone");
    const auto two = received.find("GET", one);
    const auto three = received.find("POSTthree", two);
    EXPECT_LT(one, two);
    EXPECT_LT(two, three);
    EXPECT_TRUE(received.ends_with("POSTthree"));
    EXPECT_EQ(answers, 3);
}

TEST_F(Serving, ARequestWaitsUntilTheAnswerBeforeItIsTaken) {
    serve({});
    Client client = this->client();
    client.send("GET /large HTTP/1.1\r\n\r\nGET / HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(eventually([&] { return answers == 1; }));
    runFor(20ms);
    EXPECT_EQ(answers, 1) << "the first answer is more than the system keeps for a client that doesn't read";
    EXPECT_TRUE(eventually([&] { return client.received().ends_with("GET"); }));
}

}  // namespace
}  // namespace orvel::designer
