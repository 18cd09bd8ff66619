#include "designer/sole_designer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>
#include <thread>

#include "authoring/history.h"

namespace orvel::designer {
namespace {

using namespace std::chrono_literals;

const Failure noAnswer{"the designer that is running doesn't answer; end it, and call orvel design again"};

// The other designer may be about to write it.
Outcome<OtherDesigner> readAddress(int file) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        char address[200];
        const ssize_t length = ::pread(file, address, sizeof address, 0);
        if (length > 0) return OtherDesigner{std::string(address, static_cast<std::size_t>(length))};
        std::this_thread::sleep_for(20ms);
    }
    return noAnswer;
}

std::string answerTo(std::uint16_t port, const std::string& request) {
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const timeval patience{5, 0};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
    if (::send(socket.get(), request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size()))
        return {};
    std::string answer;
    char bytes[4096];
    for (ssize_t count = 0; (count = ::recv(socket.get(), bytes, sizeof bytes, 0)) > 0;)
        answer.append(bytes, static_cast<std::size_t>(count));
    return answer;
}

}  // namespace

void SoleDesigner::publish(const std::string& address) const {
    const bool isWritten = ::ftruncate(file_.get(), 0) == 0 && ::pwrite(file_.get(), address.data(), address.size(),
                                                                        0) == static_cast<ssize_t>(address.size());
    (void)isWritten;  // if it isn't, the next designer says that this one doesn't answer
}

Outcome<std::variant<SoleDesigner, OtherDesigner>> becomeSoleDesigner(const Platform& platform) {
    const auto path = History::file(platform).parent_path() / "designer";
    const auto made = platform.files.createFolders(path.parent_path());
    if (!made) return Failure{path.parent_path().string() + ": " + made.failure().message()};
    Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file) return Failure{path.string() + ": can't open: " + std::strerror(errno)};
    ::fchmod(file.get(), 0600);
    if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
        SoleDesigner sole(std::move(file));
        sole.publish("");
        return std::variant<SoleDesigner, OtherDesigner>(std::move(sole));
    }
    if (errno != EWOULDBLOCK) return Failure{path.string() + ": can't lock: " + std::strerror(errno)};
    auto other = readAddress(file.get());
    if (!other) return other.failure();
    return std::variant<SoleDesigner, OtherDesigner>(*std::move(other));
}

Outcome<std::string> askForVisit(const OtherDesigner& other) {
    const std::string& address = other.address;
    const auto port = address.find(':', 5) + 1;
    const auto token = address.find("/?token=");
    std::uint16_t number = 0;
    if (token == address.npos || port == 0 || port > token) return noAnswer;
    const std::string digits = address.substr(port, token - port);
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const std::string host = "127.0.0.1:" + digits;
    const std::string answer =
        answerTo(number, "POST " + address.substr(token) + " HTTP/1.1\r\nHost: " + host + "\r\nOrigin: http://" + host +
                             "\r\nContent-Type: application/json\r\nContent-Length: 2"
                             "\r\nConnection: close\r\n\r\n{}");
    const auto body = answer.find("\r\n\r\n");
    if (!answer.starts_with("HTTP/1.1 200 ") || body == answer.npos) return noAnswer;
    return answer.substr(body + 4);
}

}  // namespace orvel::designer
