#include "feeds/run.h"

#include "feeds/design_update.h"
#include "feeds/feed_output.h"
#include "platform/foundation/sole_process.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

std::optional<std::string> useOutput(const Feed& feed, const std::string& text, const Platform& platform) {
    const auto output = readOutput(text);
    if (!output) return output.failure().reason;
    const auto updated = updateDesign(feed, *output, platform);
    // A change that may not survive a loss of power is made nevertheless; the next run repeats it.
    if (!updated && updated.failure().cause != Failure::Cause::afterwards) return updated.failure().reason;
    return std::nullopt;
}

}  // namespace

FeedRun runFeed(const Feed& feed, const Platform& platform) {
    const auto sole = becomeSole("orvel-feed-" + feed.name);
    if (const auto* const other = std::get_if<OtherProcess>(&sole))
        return {.failure = sentence("process {0} runs it at the moment", other->number), .isSkipped = true};
    const auto began = std::chrono::steady_clock::now();
    FeedRun run{.command = runCommand(feed.command, homeDirectory(platform.accounts), {.time = feed.timeout})};
    run.failure = run.command.failure ? run.command.failure : useOutput(feed, run.command.output, platform);
    run.time = std::chrono::steady_clock::now() - began;
    return run;
}

}  // namespace orvel
