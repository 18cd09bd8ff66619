// The program of `orvel feeds`: serves a person's feeds until it is ended. It stays small, and apart from all that
// draws.
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <exception>

#include "feeds/service.h"
#include "platform/events/ending_signals.h"
#include "platform/foundation/sole_process.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"

namespace orvel {
namespace {

// Without the library's streams, which would cost half a megabyte of memory.
void say(const std::string& sentence) {
    const std::string line = "orvel: " + unicode::onOneLine(sentence) + '\n';
    (void)!::write(STDERR_FILENO, line.data(), line.size());
}

void serve(const Platform& platform) {
    const auto sole = becomeSole(FeedService::lockName);
    if (const auto* const other = std::get_if<OtherProcess>(&sole))
        return say(sentence("your feeds are served already, by process {0}", other->number));
    ::signal(SIGCHLD, SIG_DFL);
    ::signal(SIGPIPE, SIG_IGN);
    const Descriptor ending = openEndingSignals();
    EventLoop loop;
    const auto ended = loop.watch(ending.get(), [&] { loop.stop(); });
    const FeedService service(loop, platform, say);
    loop.run();
}

}  // namespace
}  // namespace orvel

int main() try {
    std::setlocale(LC_MESSAGES, "");
    orvel::translateSentences(orvel::GettextLocalizer::installedDirectory());
    orvel::serve(orvel::Platform::system());
    return 0;
} catch (const std::exception& error) {
    orvel::say(error.what());
    return 1;
}
