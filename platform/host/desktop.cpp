#include "platform/host/desktop.h"

#include <algorithm>
#include <csignal>
#include <utility>
#include <vector>

#include "platform/events/ending_signals.h"
#include "platform/events/path_watch.h"
#include "platform/events/resident_pages.h"
#include "platform/events/timer.h"
#include "platform/foundation/descriptor.h"
#include "platform/host/card_board.h"
#include "platform/host/hosted_card.h"
#include "platform/host/session_launch.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"

namespace orvel {
namespace {

// Where the system says which zone it is in.
constexpr const char* zoneFile = "/etc/localtime";

// For surfaces that may still ask for their pixels.
constexpr std::chrono::milliseconds longestWait{1000};

/// The signals that ask the process to end, as a descriptor. A broken pipe no longer ends it.
Descriptor openSignals() {
    ::signal(SIGPIPE, SIG_IGN);  // the connection itself reports that the window system has gone away
    ::signal(SIGCHLD, SIG_IGN);  // children are not waited for
    return openEndingSignals();
}

class DesktopHost {
public:
    DesktopHost(CardSource& source, const DesktopChoices& choices)
        : source_(source),
          choices_(choices),
          localizer_(GettextLocalizer::installedDirectory()),
          board_({choices.program, choices.untitled}, localizer_, choices.notice),
          endingSignals_(openSignals()),
          ending_(loop_.watch(endingSignals_.get(), [this] { loop_.stop(); })),
          timer_(loop_, [this] { look(); }),
          settled_(loop_, [this] { rest(); }),
          dependencies_(loop_, source.dependencies(), [this] { reload(); }),
          zone_(loop_, {zoneFile}, [this] { look(); }) {}

    Result<Done, NoDisplay> run() {
        // The child prepares the drawing while this process connects to the window system.
        board_.prepare(source_.cards());
        auto windows = openWindowSystem(loop_);
        if (!windows) return windows.failure();
        windows_ = *std::move(windows);
        windows_->serve({.outputsChanged = [this] { show(); },
                         .notice = [this](const std::string& sentence) { say(sentence); },
                         .ended = [this](auto why) { end(std::move(why)); }});
        show();
        sayWhatIsMissing();
        // Something may have changed before it was watched.
        reload();
        if (!ended_) loop_.run();
        board_.clear();
        windows_.reset();
        if (failure_) return NoDisplay{*failure_};
        return Done{};
    }

private:
    void reload() {
        source_.reload();
        show();
        settled_.set(longestWait);
    }

    void look() {
        source_.look();
        show();
    }

    // When all is drawn, what only starting, reading and preparing took is no longer needed. What each minute's look
    // takes stays from then on: it would have to be read from the disk again when the system's cache is short of room.
    void rest() {
        board_.stopDrawing();
        releaseProgramPages();
    }

    void show() {
        if (ended_) return;
        const std::vector<CardOnShow> cards = source_.cards();
        if (cards.size() > 1) windows_->findRooms();
        board_.show(cards, *windows_);
        timer_.set(source_.nextLook());
        if (board_.isDrawing()) settled_.set(longestWait);
    }

    void say(const std::string& sentence) const {
        if (choices_.notice) choices_.notice(sentence);
    }

    void sayWhatIsMissing() const {
        const auto outputs = windows_->outputs();
        for (const CardOnShow& card : source_.cards()) {
            const OutputChoice& wanted = card.place.output;
            if (wanted.which == OutputChoice::Which::named &&
                std::ranges::find(outputs, wanted.name, &Output::name) == outputs.end())
                say(sentence("there is no output {0} now; the card appears when it is connected", wanted.name));
        }
    }

    void end(std::optional<std::string> why) {
        failure_ = std::move(why);
        ended_ = true;
        loop_.stop();
    }

    CardSource& source_;
    DesktopChoices choices_;
    EventLoop loop_;
    GettextLocalizer localizer_;
    std::unique_ptr<WindowSystem> windows_;
    CardBoard board_;  // destroyed before the windows
    Descriptor endingSignals_;
    EventLoop::Watch ending_;
    ClockTimer timer_;
    DelayTimer settled_;
    PathWatch dependencies_;
    PathWatch zone_;
    bool ended_ = false;
    std::optional<std::string> failure_;
};

// One widget's card.
class WidgetCard final : public CardSource {
public:
    WidgetCard(const WidgetConfiguration& widget, const ExtensionInfo& extension, const CardChoice& choice,
               std::string name, const Platform& platform)
        : choice_(choice),
          extension_(extension),
          name_(std::move(name)),
          platform_(platform),
          card_(widget, {.family = choice.family, .displaySize = displaySize(choice.family)}, platform) {}

    std::vector<CardOnShow> cards() const override { return {{"", card_.view(), choice_.family, choice_.place}}; }
    void reload() override {
        card_.reload();
        tellOfTrouble();
    }
    void look() override { card_.look(); }
    Date nextLook() const override { return card_.nextLook(); }
    std::vector<std::filesystem::path> dependencies() const override { return {extension_.watchedFolder(platform_)}; }

private:
    void tellOfTrouble() {
        const std::string trouble = extension_.trouble ? extension_.trouble(platform_).value_or("") : "";
        if (trouble != told_ && !trouble.empty()) notifyInSession(name_, trouble);
        told_ = trouble;
    }

    CardChoice choice_;
    const ExtensionInfo& extension_;
    std::string name_;
    const Platform& platform_;
    HostedCard card_;
    std::string told_;
};

}  // namespace

Result<Done, NoDisplay> showOnDesktop(CardSource& source, const DesktopChoices& choices) {
    return DesktopHost(source, choices).run();
}

Result<Done, NoDisplay> showWidgetOnDesktop(const WidgetConfiguration& widget, const ExtensionInfo& extension,
                                            const CardChoice& choice, std::function<void(const std::string&)> notice,
                                            const Platform& platform) {
    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    const std::string name = localized(widget.displayName, localizer);
    WidgetCard card(widget, extension, choice, name, platform);
    return showOnDesktop(card, {.program = extension.program, .untitled = name, .notice = std::move(notice)});
}

}  // namespace orvel
