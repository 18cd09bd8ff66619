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
#include "platform/language/sentence.h"
#include "platform/window/open_window_system.h"
#include "tools/desktop/autostart.h"

namespace orvel::tools {
namespace {

using enum Health;

Finding session(const Platform&) {
    const WindowSystems systems = windowSystems();
    if (!systems.wayland && !systems.x11)
        return {problem, sentence("neither a Wayland compositor nor an X server answers"),
                sentence("run it in a graphical session, which sets WAYLAND_DISPLAY or DISPLAY")};
    const char* const desktop = std::getenv("XDG_CURRENT_DESKTOP");
    const std::string system = !systems.x11      ? "Wayland"
                               : systems.wayland ? sentence("Wayland, with an X server")
                                                 : "X11";
    return {good, desktop && *desktop ? sentence("{0} ({1})", system, desktop) : system};
}

Finding layerShell(const Platform&) {
    const WindowSystems systems = windowSystems();
    if (systems.layerShell) return {good, sentence("the compositor has it")};
    if (systems.x11 && !systems.wayland)
        return {good, sentence("not needed on X11; the card is a window below the others")};
    if (systems.x11)
        return {note, sentence("the compositor has none; the card is a window of its X server"),
                sentence("nothing, or use a compositor with wlr-layer-shell")};
    if (systems.wayland)
        return {note, sentence("the compositor has none, and there is no X server; the card is a plain window"),
                sentence("turn Xwayland on, or use a compositor with wlr-layer-shell")};
    return {note, sentence("there is no session to ask"), sentence("see session")};
}

Finding renderer(const Platform&) {
    const auto loaded = loadRenderer();
    if (loaded) return {good, sentence("loaded")};
    return {problem, loaded.failure().reason, sentence("install orvel again, with the libraries that it depends on")};
}

Finding fonts(const Platform&) {
    const auto loaded = loadRenderer();
    if (!loaded) return {note, sentence("can't be checked without the renderer"), sentence("see renderer")};
    const FontReport report = (*loaded)->fonts();
    if (report.family != report.systemFont)
        return {note, sentence("{0} isn't installed; {1} is used instead", report.systemFont, report.family),
                sentence("install it (Debian: fonts-inter)")};
    if (!report.missing.empty())
        return {
            note, sentence("{0}, but no font for {1}", report.family, alternatives(report.missing)),
            sentence(
                "for texts in those, install fonts (Debian: fonts-noto-core, fonts-noto-cjk, fonts-noto-color-emoji)")};
    return {good, sentence("{0}, and other fonts for what it lacks", report.family)};
}

Finding store(const Platform& platform) {
    const auto designs = readDesigns(platform);
    if (!designs)
        return {problem, designs.failure().reason, sentence("correct it there; until then, the card shows no design")};
    const std::string file = StoreFiles::list(platform).string();
    if (designs->empty())
        return {note, file + ": " + sentence("no designs yet"),
                "orvel add --kind metric --title \"Active users\" --primary 42"};
    const Symbols symbols;
    const std::size_t warned = warnings(*designs, symbols).size();
    const std::string count = counted("{0} design", "{0} designs", designs->size());
    if (warned > 0)
        return {note, file + ": " + counted("{1}, {0} warning", "{1}, {0} warnings", warned, count),
                sentence("orvel check says which")};
    return {good, file + ": " + count};
}

Finding places(const Platform& platform) {
    const auto places = readPlaces(platform);
    if (!places)
        return {problem, places.failure().reason, sentence("correct it there; until then, the cards stay as they are")};
    if (places->empty()) return {good, sentence("none: the first design is shown at the top right")};
    const auto designs = readDesigns(platform);
    if (!designs) return {note, sentence("can't check whether their designs are stored"), sentence("see store")};
    const auto waiting = std::ranges::count_if(*places, [&](const Place& each) { return !designAt(each, *designs); });
    const std::string count = counted("{0} place", "{0} places", places->size());
    if (waiting == 0) return {good, count};
    return {note,
            counted("{1}, {0} without a stored design", "{1}, {0} without a stored design",
                    static_cast<std::size_t>(waiting), count),
            sentence("orvel place shows which; store the design, or orvel unplace it")};
}

Finding feeds(const Platform& platform) {
    const auto feeds = readFeeds(platform);
    if (!feeds) return {problem, feeds.failure().reason, sentence("mend it there")};
    if (feeds->empty()) return {good, sentence("none")};
    const std::string count = counted("{0} feed", "{0} feeds", feeds->size());
    const auto service = findSole(FeedService::lockName);
    if (!service)
        return {note, sentence("{0}, and nothing serves them", count),
                sentence("orvel feeds, or orvel autostart on for each session")};
    const FeedStatuses statuses = Statuses::read(platform);
    for (const Feed& feed : *feeds)
        if (const auto found = statuses.find(feed.name); found != statuses.end() && found->second.failure)
            return {note, clauses(count, feed.name + ": " + *found->second.failure),
                    sentence("orvel feed list shows them all")};
    return {good, sentence("{0}, served by process {1}", count, service->number)};
}

Finding atStart(const Platform& platform) {
    const auto state = autostart(platform);
    if (!state) return {problem, state.failure().reason, sentence("make that file readable")};
    if (state->warning) return {problem, *state->warning, "orvel autostart on"};
    if (state->isOn) return {good, sentence("on: the cards start with your session")};
    return {note, sentence("off"), "orvel autostart on"};
}

constexpr std::array all{
    Check{toTranslate("session"), session},   Check{toTranslate("layer shell"), layerShell},
    Check{toTranslate("renderer"), renderer}, Check{toTranslate("fonts"), fonts},
    Check{toTranslate("store"), store},       Check{toTranslate("places"), places},
    Check{toTranslate("feeds"), feeds},       Check{toTranslate("autostart"), atStart},
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
