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
#include "platform/events/timer.h"
#include "platform/host/session_launch.h"

namespace orvel::designer {
namespace {

using namespace std::chrono_literals;

// A reload closes a page and opens it again.
constexpr auto afterLastPage = 3s;
constexpr auto forFirstPage = 120s;

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
    std::unique_ptr<HttpServer> server;
    std::optional<DelayTimer> keeping;
    FeedDesk feeds(
        loop, [&] { server->send("feeds", "changed"); }, platform);
    Service service(*std::move(pictures), feeds,
                    {[&](const std::string& event, const std::string& data) { server->send(event, data); },
                     [&] { keeping->set(0ms); }},
                    platform);
    keeping.emplace(loop, [&] { service.keep(); });
    DelayTimer unvisited(loop, [&] { loop.stop(); });
    auto listening = HttpServer::listen(
        loop, choices.port,
        {[&](const HttpRequest& request) { return service.access.refuse(request, service.port); },
         [&](const HttpRequest& request) { return service.answer(request); },
         // Nothing ends while a page is open: the longest time is as good as none.
         [&](std::size_t pages) { unvisited.set(pages == 0 ? std::chrono::milliseconds(afterLastPage) : 24h * 365); }});
    if (!listening) return listening.failure();
    server = *std::move(listening);
    service.port = server->port();
    const PathWatch watch(loop, {StoreFiles::folder(platform)}, [&] { service.look(); });
    const PathWatch watchPlaces(loop, {placesFile(platform)}, [&] { server->send("desktop", "changed"); });

    sole.publish(service.access.address(service.port));
    if (choices.opensBrowser) {
        openInSession(service.access.addressForOneVisit(service.port) + part);
        unvisited.set(forFirstPage);
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
