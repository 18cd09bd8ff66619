#include "tools/feeds/new.h"

#include <algorithm>

#include "feeds/feeds.h"
#include "feeds/run.h"
#include "feeds/templates.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "tools/core/terminal.h"
#include "tools/feeds/feed.h"

namespace orvel::tools {
namespace {

void listTemplates(Console& console) {
    std::vector<std::vector<std::string>> rows{
        {sentence("TEMPLATE"), sentence("ARGUMENTS"), sentence("NEEDS"), sentence("SHOWS")}};
    for (const FeedTemplate& each : feedTemplates)
        rows.push_back(
            {std::string(each.name), std::string(each.arguments), std::string(each.needs), sentence(each.help)});
    printColumns(rows, console);
}

Outcome<const FeedTemplate*> findTemplate(const std::string& name) {
    if (const FeedTemplate* const found = findFeedTemplate(name)) return found;
    std::vector<std::string_view> names;
    for (const FeedTemplate& each : feedTemplates) names.push_back(each.name);
    std::string hint = didYouMean(name, names);
    if (hint.empty()) hint = sentence("orvel feed new lists them");
    return Failure{clauses(sentence("no template is called \"{0}\"", unicode::onOneLine(name)), hint),
                   Failure::Cause::request};
}

Outcome<Done> checkArguments(const FeedTemplate& source, const std::vector<std::string>& given) {
    if (given.size() >= neededArguments(source)) return Done{};
    return Failure{sentence("{0} needs {1}: orvel feed new {0} {1}", std::string(source.name), source.arguments),
                   Failure::Cause::request};
}

Feed feedOf(const FeedTemplate& source, const NewFeed& wanted) {
    std::vector<std::string> arguments;
    for (const std::string& argument : wanted.arguments) {
        // A file or folder is found from wherever it runs.
        std::error_code code;
        const bool isPath = std::filesystem::exists(argument, code);
        arguments.push_back(isPath ? std::filesystem::absolute(argument).lexically_normal().string() : argument);
    }
    const Feed usual = feedFrom(source, arguments);
    Feed feed = wanted.feed;
    if (feed.name.empty()) feed.name = usual.name;
    if (feed.design.empty()) feed.design = feed.name;
    feed.every = wanted.every.value_or(usual.every);
    feed.first = usual.first;
    feed.command = usual.command;
    feed.whenOnline = feed.whenOnline || usual.whenOnline;
    feed.pausesOnBattery = feed.pausesOnBattery || usual.pausesOnBattery;
    return feed;
}

}  // namespace

Outcome<Done> newFeed(const NewFeed& wanted, const Platform& platform, Console& console) {
    if (wanted.source.empty()) {
        listTemplates(console);
        return Done{};
    }
    const auto source = findTemplate(wanted.source);
    if (!source) return source.failure();
    if (const auto checked = checkArguments(**source, wanted.arguments); !checked) return checked.failure();
    const Feed feed = feedOf(**source, wanted);
    const auto feeds = readFeeds(platform);
    if (feeds && std::ranges::find(*feeds, feed.name, &Feed::name) != feeds->end())
        return Failure{
            sentence("there is a feed called \"{0}\"; --name gives this one another", unicode::onOneLine(feed.name))};
    if (const auto added = addFeed(feed, platform, console); !added) return added.failure();
    const FeedRun run = runFeed(feed, platform);
    if (run.failure && !run.isSkipped)
        warn(sentence("{0} is added, but its first run failed: {1}", feed.name, *run.failure), console);
    return Done{};
}

}  // namespace orvel::tools
