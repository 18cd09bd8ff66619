#include "tools/doctor/checks.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "authoring/designs.h"
#include "authoring/warnings.h"
#include "desktop/places.h"
#include "feeds/feeds.h"
#include "feeds/service.h"
#include "feeds/status.h"
#include "model/store_files.h"
#include "platform/foundation/installation.h"
#include "platform/foundation/sole_process.h"
#include "platform/foundation/text_list.h"
#include "platform/host/renderer_module.h"
#include "platform/window/open_window_system.h"
#include "tools/desktop/autostart.h"

namespace orvel::tools {
namespace {

using enum Health;

Finding session(const Platform&) {
    const WindowSystems systems = windowSystems();
    if (!systems.wayland && !systems.x11)
        return {problem, "neither a Wayland compositor nor an X server answers",
                "run it in a graphical session, which sets WAYLAND_DISPLAY or DISPLAY"};
    const char* const desktop = std::getenv("XDG_CURRENT_DESKTOP");
    const std::string system = !systems.x11 ? "Wayland" : systems.wayland ? "Wayland, with an X server" : "X11";
    return {good, system + (desktop && *desktop ? " (" + std::string(desktop) + ")" : "")};
}

Finding layerShell(const Platform&) {
    const WindowSystems systems = windowSystems();
    if (systems.layerShell) return {good, "the compositor has it"};
    if (systems.x11 && !systems.wayland) return {good, "not needed on X11; the card is a window below the others"};
    if (systems.x11)
        return {note, "the compositor has none; the card is a window of its X server",
                "nothing, or use a compositor with wlr-layer-shell"};
    if (systems.wayland)
        return {note, "the compositor has none, and there is no X server; the card is a plain window",
                "turn Xwayland on, or use a compositor with wlr-layer-shell"};
    return {note, "there is no session to ask", "see session"};
}

Finding renderer(const Platform&) {
    const auto loaded = loadRenderer();
    if (loaded) return {good, "loaded"};
    return {problem, loaded.failure().reason, "install orvel again, with the libraries that it depends on"};
}

Finding fonts(const Platform&) {
    const auto loaded = loadRenderer();
    if (!loaded) return {note, "can't be checked without the renderer", "see renderer"};
    const FontReport report = (*loaded)->fonts();
    if (report.family != report.systemFont)
        return {note, report.systemFont + " isn't installed; " + report.family + " is used instead",
                "install it (Debian: fonts-inter)"};
    if (!report.missing.empty())
        return {note, report.family + ", but no font for " + alternatives(report.missing),
                "for texts in those, install fonts (Debian: fonts-noto-core, fonts-noto-cjk, fonts-noto-color-emoji)"};
    return {good, report.family + ", and other fonts for what it lacks"};
}

Finding store(const Platform& platform) {
    const auto designs = readDesigns(platform);
    if (!designs) return {problem, designs.failure().reason, "correct it there; until then, the card shows no design"};
    const std::string file = StoreFiles::list(platform).string();
    if (designs->empty())
        return {note, file + ": no designs yet", "orvel add --kind metric --title \"Active users\" --primary 42"};
    const Symbols symbols;
    const std::size_t warned = warnings(*designs, symbols).size();
    const std::string count = std::to_string(designs->size()) + (designs->size() == 1 ? " design" : " designs");
    if (warned > 0)
        return {note, file + ": " + count + ", " + std::to_string(warned) + (warned == 1 ? " warning" : " warnings"),
                "orvel check says which"};
    return {good, file + ": " + count};
}

Finding places(const Platform& platform) {
    const auto places = readPlaces(platform);
    if (!places) return {problem, places.failure().reason, "correct it there; until then, the cards stay as they are"};
    if (places->empty()) return {good, "none: the first design is shown at the top right"};
    const auto designs = readDesigns(platform);
    if (!designs) return {note, "can't check whether their designs are stored", "see store"};
    const auto waiting = std::ranges::count_if(*places, [&](const Place& each) { return !designAt(each, *designs); });
    const std::string count = std::to_string(places->size()) + (places->size() == 1 ? " place" : " places");
    if (waiting == 0) return {good, count};
    return {note, count + ", " + std::to_string(waiting) + " without a stored design",
            "orvel place shows which; store the design, or orvel unplace it"};
}

Finding feeds(const Platform& platform) {
    const auto feeds = readFeeds(platform);
    if (!feeds) return {problem, feeds.failure().reason, "mend it there"};
    if (feeds->empty()) return {good, "none"};
    const std::string count = std::to_string(feeds->size()) + (feeds->size() == 1 ? " feed" : " feeds");
    const auto service = findSole(FeedService::lockName);
    if (!service)
        return {note, count + ", and nothing serves them", "orvel feeds, or orvel autostart on for each session"};
    const FeedStatuses statuses = Statuses::read(platform);
    for (const Feed& feed : *feeds)
        if (const auto found = statuses.find(feed.name); found != statuses.end() && found->second.failure)
            return {note, count + "; " + feed.name + ": " + *found->second.failure, "orvel feed list shows them all"};
    return {good, count + ", served by process " + service->number};
}

Finding atStart(const Platform& platform) {
    const auto state = autostart(platform);
    if (!state) return {problem, state.failure().reason, "make that file readable"};
    if (state->warning) return {problem, *state->warning, "orvel autostart on"};
    if (state->isOn) return {good, "on: the cards start with your session"};
    return {note, "off", "orvel autostart on"};
}

constexpr std::array all{
    Check{"session", session},   Check{"layer shell", layerShell},
    Check{"renderer", renderer}, Check{"fonts", fonts},
    Check{"store", store},       Check{"places", places},
    Check{"feeds", feeds},       Check{"autostart", atStart},
};

}  // namespace

std::string_view name(Health health) {
    switch (health) {
        case good: return "good";
        case note: return "note";
        case problem: return "problem";
    }
    return {};
}

std::span<const Check> checks() {
    return all;
}

}  // namespace orvel::tools
