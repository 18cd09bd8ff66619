#include "platform/host/desktop.h"

#include <sys/signalfd.h>

#include <csignal>

#include "platform/host/card.h"
#include "platform/host/hosted_card.h"
#include "platform/host/own_process.h"
#include "platform/render/pango_text_engine.h"
#include "platform/render/picture.h"
#include "platform/ui/gettext_localizer.h"
#include "platform/ui/view_words.h"
#include "platform/window/path_watch.h"
#include "platform/window/timer.h"

namespace orvel {
namespace {

constexpr std::chrono::seconds longestDrawing{10};

// Where the system says which zone it is in.
constexpr const char* zoneFile = "/etc/localtime";

bool drawCard(const View& view, WidgetFamily family, const Localizer& localizer, const PixelBuffer& pixels) {
    PangoTextEngine text;
    Painter painter;
    const auto drawsSymbol = [&](std::string_view symbol) { return painter.symbols().contains(symbol); };
    Scene scene = cardScene(view, family, {text, localizer}, drawsSymbol);
    return paint({scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}}, pixels, painter);
}

/// A descriptor that can be read once the process is asked to end; the signals no longer end it by themselves.
int endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    ::signal(SIGPIPE, SIG_IGN);  // a window system that has gone away is told by its connection
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
          timer_(loop_, [this] { show(card_.look()); }),
          folder_(loop_, {extension.watchedFolder(platform)}, [this] { show(card_.reload()); }),
          zone_(loop_, {zoneFile}, [this] { show(card_.look()); }),
          program_(extension.program),
          name_(localized(widget.displayName, localizer_)) {}

    Result<Done, NoDisplay> run() {
        const Size size = displaySize(choices_.family);
        auto surface = openDesktopSurface({.width = size.width,
                                           .height = size.height,
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
        if (changed || !drawn_) surface_->contentChanged(title());
        timer_.set(card_.nextLook());
    }

    bool draw(const PixelBuffer& pixels) {
        drawn_ =
            inOwnProcess([&] { return drawCard(card_.view(), choices_.family, localizer_, pixels); }, longestDrawing);
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
    ClockTimer timer_;
    PathWatch folder_;
    PathWatch zone_;
    std::string program_;
    std::string name_;
    std::unique_ptr<DesktopSurface> surface_;
    bool drawn_ = true;  ///< the last drawing succeeded; otherwise each look tries again
    bool ended_ = false;
    std::optional<std::string> failure_;
};

}  // namespace

Result<Done, NoDisplay> showOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                      const DesktopChoices& choices, const Platform& platform) {
    return DesktopHost(widget, extension, choices, platform).run();
}

}  // namespace orvel
