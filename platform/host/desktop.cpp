#include "platform/host/desktop.h"

#include <sys/signalfd.h>

#include <csignal>
#include <utility>
#include <vector>

#include "platform/host/card.h"
#include "platform/host/hosted_card.h"
#include "platform/host/own_process.h"
#include "platform/host/renderer_module.h"
#include "platform/ui/gettext_localizer.h"
#include "platform/ui/view_words.h"
#include "platform/window/path_watch.h"
#include "platform/window/timer.h"

namespace orvel {
namespace {

constexpr std::chrono::seconds longestDrawing{10};

// Where the system says which zone it is in.
constexpr const char* zoneFile = "/etc/localtime";

/// Gets the drawing libraries ready and all that doesn't depend on the pixels, and then waits for the question, which
/// pixels, and answers with their bytes. It ends without an answer when it can't draw.
void drawCard(const Channel& channel, const View& view, WidgetFamily family, const Localizer& localizer,
              FunctionRef<void(const std::string&)> notice) {
    const auto renderer = loadRenderer();
    if (!renderer) return notice("can't draw: " + renderer.failure().reason);
    Scene scene = cardScene(view, family, {(*renderer)->text(), localizer}, (*renderer)->symbols());
    const Picture picture{scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}};

    PixelBuffer pixels;
    if (!channel.receive(&pixels, sizeof pixels)) return;
    std::vector<unsigned char> bytes(size(pixels));
    pixels.bytes = bytes.data();
    if ((*renderer)->paint(picture, pixels)) channel.send(bytes.data(), bytes.size());
}

/// A descriptor that can be read once the process is asked to end; the signals no longer end it by themselves.
int endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    ::signal(SIGPIPE, SIG_IGN);  // a window system that has gone away is told by its connection
    ::signal(SIGCHLD, SIG_IGN);  // and a process that has drawn needs no farewell
    return ::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

class DesktopHost {
public:
    DesktopHost(const WidgetConfiguration& widget, const ExtensionInfo& extension, const DesktopChoices& choices,
                const Platform& platform)
        : choices_(choices),
          card_(widget, {.family = choices.family, .displaySize = displaySize(choices.family)}, platform),
          localizer_(GettextLocalizer::installedDirectory()),
          ending_(loop_.watch(endingSignals(), [this] { loop_.stop(); })),
          drawing_(startDrawing()),
          timer_(loop_, [this] { show(card_.look()); }),
          folder_(loop_, {extension.watchedFolder(platform)}, [this] { show(card_.reload()); }),
          zone_(loop_, {zoneFile}, [this] { show(card_.look()); }),
          program_(extension.program),
          name_(localized(widget.displayName, localizer_)) {}

    Result<Done, NoDisplay> run() {
        const Size points = displaySize(choices_.family);
        auto surface = openDesktopSurface({.width = points.width,
                                           .height = points.height,
                                           .cornerRadius = cornerRadius,
                                           .placement = choices_.placement,
                                           .program = program_,
                                           .title = title(),
                                           .draw = [this](const PixelBuffer& pixels) { return draw(pixels); },
                                           .notice = choices_.notice,
                                           .ended = [this](auto why) { end(std::move(why)); }},
                                          loop_);
        if (!surface) return surface.failure();
        surface_ = *std::move(surface);
        // The store may have changed before its folder was watched.
        show(card_.reload());
        if (!ended_) loop_.run();
        surface_.reset();
        if (failure_) return NoDisplay{*failure_};
        return Done{};
    }

private:
    void show(bool changed) {
        if (changed) drawing_.reset();
        if (changed || !drawn_) surface_->contentChanged(title());
        timer_.set(card_.nextLook());
    }

    /// A process that is ready to draw the view, or soon will be.
    Channel startDrawing() {
        const auto sayOnce = [this](const std::string& sentence) {
            if (drawn_ && choices_.notice) choices_.notice(sentence);
        };
        return startOwnProcess(
            [&](const Channel& channel) { drawCard(channel, card_.view(), choices_.family, localizer_, sayOnce); },
            longestDrawing);
    }

    bool draw(const PixelBuffer& pixels) {
        const auto answered = [&] {
            const auto drawing = std::exchange(drawing_, std::nullopt);
            return drawing && drawing->send(&pixels, sizeof pixels) && drawing->receive(pixels.bytes, size(pixels));
        };
        if (drawing_) {
            drawn_ = answered();
            if (drawn_) return true;  // else it may have waited for too long
        }
        drawing_ = startDrawing();
        drawn_ = answered();
        return drawn_;
    }

    std::string title() const {
        std::string said = words(card_.view(), localizer_);
        return said.empty() ? name_ : said;
    }

    void end(std::optional<std::string> why) {
        failure_ = std::move(why);
        ended_ = true;
        loop_.stop();
    }

    DesktopChoices choices_;
    EventLoop loop_;
    HostedCard card_;
    GettextLocalizer localizer_;
    EventLoop::Watch ending_;
    bool drawn_ = true;               ///< the last drawing succeeded; otherwise each look tries again
    std::optional<Channel> drawing_;  ///< prepared, beside all that is done before there are pixels to draw
    ClockTimer timer_;
    PathWatch folder_;
    PathWatch zone_;
    std::string program_;
    std::string name_;
    std::unique_ptr<DesktopSurface> surface_;
    bool ended_ = false;
    std::optional<std::string> failure_;
};

}  // namespace

Result<Done, NoDisplay> showOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                      const DesktopChoices& choices, const Platform& platform) {
    return DesktopHost(widget, extension, choices, platform).run();
}

}  // namespace orvel
