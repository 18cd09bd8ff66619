#include "tools/card/follow.h"

#include <cmath>
#include <filesystem>

#include "platform/events/ending_signals.h"
#include "platform/events/path_watch.h"
#include "platform/events/timer.h"
#include "platform/language/sentence.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

std::vector<std::filesystem::path> watchedPaths(const DesignChoice& design, const Platform& platform) {
    std::vector<std::filesystem::path> paths{"/etc/localtime"};
    if (design.file)
        paths.push_back(std::filesystem::absolute(*design.file));
    else
        paths.emplace_back(OrvelWidgetBundle::info().watchedFolder(platform));
    return paths;
}

Date nextMinute() {
    const Date now = Platform::system().clock.now();
    return {(std::floor(now.timeIntervalSinceReferenceDate / 60) + 1) * 60};
}

}  // namespace

Outcome<Done> follow(const DesignChoice& design, const Platform& platform, Console& console,
                     FunctionRef<Outcome<Done>()> update) {
    if (design.file == "-")
        return Failure{sentence("standard input can't be followed; name a file"), Failure::Cause::request};
    EventLoop loop;
    const Descriptor ending = openEndingSignals();
    const auto endingWatch = loop.watch(ending.get(), [&] { loop.stop(); });

    std::string said;
    const auto look = [&] {
        const auto updated = update();
        const std::string reason = updated ? "" : updated.failure().reason;
        if (!reason.empty() && reason != said) say(reason, console);
        said = reason;
    };
    std::optional<ClockTimer> timer;
    timer.emplace(loop, [&] {
        look();
        timer->set(nextMinute());
    });
    const PathWatch watch(loop, watchedPaths(design, platform), look);
    look();
    timer->set(nextMinute());
    loop.run();
    return Done{};
}

}  // namespace orvel::tools
