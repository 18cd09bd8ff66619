// The designer's program: serves its page until the last one is closed. `orvel design` starts it.
#include <sys/signalfd.h>
#include <unistd.h>

#include <charconv>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

#include "authoring/designs.h"
#include "authoring/references.h"
#include "designer/feeds/feed_desk.h"
#include "designer/http/server.h"
#include "designer/service.h"
#include "designer/sole_designer.h"
#include "desktop/places.h"
#include "model/store_files.h"
#include "platform/events/path_watch.h"
#include "platform/events/resident_pages.h"
#include "platform/events/timer.h"
#include "platform/host/session_launch.h"

namespace orvel::designer {
namespace {

using namespace std::chrono_literals;

constexpr auto forFirstPage = 120s;
constexpr auto whileOpen = 24h * 365;

// How long the designer waits for another page when the last one is gone: for a reload, which closes a page and opens
// it again; for a browser that has lost the connection; for one that has dropped a page that nobody saw for long.
constexpr auto afterClosed = 3s;
constexpr auto afterLost = 10s;
constexpr auto afterDropped = 12h;
constexpr auto untilDropped = 5min;

// After the last question; nobody types then.
constexpr auto untilRest = 1s;

// Ends the loop when no page needs it any more.
class Waiting {
public:
    explicit Waiting(EventLoop& loop) : timer_(loop, [&loop] { loop.stop(); }) {}

    void forFirst() { timer_.set(forFirstPage); }
    void pagesChanged(std::size_t pages) {
        pages_ = pages;
        set();
    }
    void present(Presence presence) {
        if (presence != presence_) since_ = Clock::now();
        presence_ = presence;
        set();
    }
    /// Something was asked for: a page is being loaded.
    void asked() {
        if (presence_ == Presence::left) set();
    }

private:
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds patience() const {
        if (pages_ > 0u) return whileOpen;
        if (presence_ == Presence::left) return afterClosed;
        const bool isDropped = presence_ == Presence::hidden && Clock::now() - since_ > untilDropped;
        return isDropped ? std::chrono::milliseconds(afterDropped) : afterLost;
    }

    void set() {
        if (pages_) timer_.set(patience());
    }

    DelayTimer timer_;
    Clock::time_point since_ = Clock::now();
    std::optional<std::size_t> pages_;  ///< none before the first
    Presence presence_ = Presence::shown;
};

struct Choices {
    bool opensBrowser = true;
    std::uint16_t port = 0;
    std::optional<std::string> design = {};
};

std::optional<Choices> choices(int argc, char** argv) {
    // Without a screen there is no browser to open.
    Choices choices{.opensBrowser = std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY")};
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--no-browser") {
            choices.opensBrowser = false;
        } else if (word == "--port" && i + 1 < argc) {
            const std::string_view digits = argv[++i];
            const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), choices.port);
            if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
        } else if (!choices.design && !word.starts_with("--")) {
            choices.design = word;
        } else {
            return std::nullopt;
        }
    }
    return choices;
}

// What the address says of the design to begin with.
Outcome<std::string> designPart(const Choices& choices, const Platform& platform) {
    if (!choices.design) return std::string();
    const auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    const auto index = findOne(*specs, *choices.design);
    if (!index) return index.failure();
    return "&design=" + percentEncoded((*specs)[*index].id);
}

void show(const std::string& address) {
    std::cout << address << std::endl;
}

Outcome<Done> visit(const OtherDesigner& other, const Choices& choices, const std::string& part) {
    if (!choices.opensBrowser) {
        show(other.address + part);
        return Done{};
    }
    const auto address = askForVisit(other);
    if (!address) return address.failure();
    openInSession(*address + part);
    return Done{};
}

Outcome<Done> serve(const SoleDesigner& sole, const Choices& choices, const std::string& part,
                    const Platform& platform) {
    EventLoop loop;
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    const Descriptor ending(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    const auto onEnding = loop.watch(ending.get(), [&] { loop.stop(); });

    auto pictures = CardPictures::open(platform);
    if (!pictures) return pictures.failure();
    Waiting waiting(loop);
    std::unique_ptr<HttpServer> server;
    std::optional<DelayTimer> keeping;
    DelayTimer resting(loop, releaseProgramPages);
    FeedDesk feeds(
        loop, [&] { server->send("feeds", "changed"); }, platform);
    Service service(*std::move(pictures), feeds,
                    {[&](const std::string& event, const std::string& data) {
                         if (server) server->send(event, data);
                     },
                     [&] { keeping->set(0ms); }, [&](Presence presence) { waiting.present(presence); }},
                    platform);
    keeping.emplace(loop, [&] { service.keep(); });
    auto listening =
        HttpServer::listen(loop, choices.port,
                           {[&](const HttpRequest& request) { return service.access.refuse(request, service.port); },
                            [&](const HttpRequest& request) {
                                waiting.asked();
                                resting.set(untilRest);
                                return service.answer(request);
                            },
                            [&](std::size_t pages) { waiting.pagesChanged(pages); }});
    if (!listening) return listening.failure();
    server = *std::move(listening);
    service.port = server->port();
    const PathWatch watch(loop, {StoreFiles::folder(platform)}, [&] { service.look(); });
    const PathWatch watchPlaces(loop, {placesFile(platform)}, [&] { server->send("desktop", "changed"); });

    sole.publish(service.access.address(service.port));
    if (choices.opensBrowser) {
        openInSession(service.access.addressForOneVisit(service.port) + part);
        waiting.forFirst();
    } else {
        show(service.access.address(service.port) + part);
    }
    loop.run();
    service.keep();
    sole.publish("");
    return Done{};
}

Outcome<Done> run(const Choices& choices, const Platform& platform) {
    const auto part = designPart(choices, platform);
    if (!part) return part.failure();
    const auto designer = becomeSoleDesigner(platform);
    if (!designer) return designer.failure();
    if (const auto* const other = std::get_if<OtherDesigner>(&*designer)) return visit(*other, choices, *part);
    return serve(std::get<SoleDesigner>(*designer), choices, *part, platform);
}

}  // namespace
}  // namespace orvel::designer

int main(int argc, char** argv) {
    std::setlocale(LC_MESSAGES, "");
    const auto choices = orvel::designer::choices(argc, argv);
    if (!choices) {
        std::cerr << "orvel-designer: usage: orvel-designer [--no-browser] [--port N] [ID]\n";
        return 2;
    }
    std::string reason;
    try {
        const auto done = orvel::designer::run(*choices, orvel::Platform::system());
        if (done) return 0;
        reason = done.failure().reason;
    } catch (const std::exception& error) {  // no descriptors or no memory left while it starts
        reason = error.what();
    }
    std::cerr << "orvel: " << reason << '\n';
    return 1;
}
