#include "designer/feeds/feed_changes.h"

#include <algorithm>
#include <filesystem>
#include <functional>

#include "authoring/designs.h"
#include "authoring/field_texts.h"
#include "authoring/references.h"
#include "designer/feeds/command_text.h"
#include "feeds/design_update.h"
#include "feeds/feeds.h"
#include "feeds/templates.h"
#include "platform/foundation/json_reader.h"

namespace orvel::designer {
namespace {

using Feeds = std::vector<Feed>;

struct Wanted {
    std::string name, source, command, arguments, every, timeout, onBattery = "run";
    bool whenOnline = false;
};

Failure wrong(const char* field, const std::string& reason) {
    return {reason, Failure::Cause::request, field};
}

Outcome<Wanted> readWanted(std::string json) {
    Wanted wanted;
    const auto member = [&](std::string_view name, json::Value& value) {
        if (name == "whenOnline") {
            const auto read = value.boolean();
            wanted.whenOnline = read.value_or(false);
            return read.has_value();
        }
        for (const auto& [word, text] :
             {std::pair{"name", &wanted.name}, std::pair{"source", &wanted.source},
              std::pair{"command", &wanted.command}, std::pair{"every", &wanted.every},
              std::pair{"arguments", &wanted.arguments}, std::pair{"timeout", &wanted.timeout},
              std::pair{"onBattery", &wanted.onBattery}}) {
            if (name != word) continue;
            const auto read = value.string();
            if (read) *text = *read;
            return read.has_value();
        }
        return true;
    };
    bool isRead = false;
    const auto syntax = json::read(std::move(json), [&](json::Value& value) { return isRead = value.members(member); });
    if (syntax || !isRead) return wrong("source", "the feed isn't what this address takes");
    return wanted;
}

// A name without "/" is looked for in PATH; the command runs in the home folder, and nobody else reads "~".
std::vector<std::string> withHome(std::vector<std::string> words, const Platform& platform) {
    for (std::string& word : words)
        if (word == "~" || word.starts_with("~/")) word.replace(0, 1, homeDirectory(platform.accounts));
    return words;
}

Outcome<std::vector<std::string>> readWords(const char* field, const std::string& text, const Platform& platform) {
    auto words = commandWords(text);
    if (!words) return wrong(field, "a quotation mark isn't closed");
    return withHome(*std::move(words), platform);
}

// How it is run, by the form's fields.
Outcome<Done> assignRun(const Wanted& wanted, Feed& feed, const Platform& platform) {
    const auto command = readWords("command", wanted.command, platform);
    if (!command) return command.failure();
    if (command->empty() || command->front().empty()) return wrong("command", "a program is wanted, such as df -h /");
    feed.command = *command;
    return Done{};
}

Outcome<Done> assignTimes(const Wanted& wanted, Feed& feed) {
    const auto every = everyText(wanted.every);
    if (!every) return wrong("every", every.failure().reason);
    const auto timeout = durationText(wanted.timeout, Feed::longestTimeout);
    if (!timeout) return wrong("timeout", "from 1s to 1h is wanted, such as 10s");
    feed.every = *every;
    feed.timeout = *timeout;
    feed.pausesOnBattery = wanted.onBattery == "pause";
    feed.whenOnline = wanted.whenOnline;
    return Done{};
}

// The first that no feed has: disk, disk-2, disk-3.
std::string freeName(const std::string& wanted, const Feeds& feeds) {
    const std::string stem = wrongFeedName(wanted).empty() ? wanted : "card";
    std::string name = stem;
    for (int number = 2; std::ranges::find(feeds, name, &Feed::name) != feeds.end(); ++number)
        name = stem + '-' + std::to_string(number);
    return name;
}

Outcome<Feed> newFeed(const Wanted& wanted, const WidgetSpec& design, const Platform& platform) {
    Feed feed;
    if (!wanted.source.empty()) {
        const FeedTemplate* const source = findFeedTemplate(wanted.source);
        if (!source) return wrong("source", "there is no template \"" + wanted.source + '"');
        const auto arguments = readWords("arguments", wanted.arguments, platform);
        if (!arguments) return arguments.failure();
        if (arguments->size() < neededArguments(*source))
            return wrong("arguments", "wanted: " + std::string(source->arguments));
        feed = feedFrom(*source, *arguments);
    } else {
        if (const auto run = assignRun(wanted, feed, platform); !run) return run.failure();
        feed.name = std::filesystem::path(feed.command.front()).filename();
    }
    feed.design = design.id;
    feed.isMade = true;  // what is removed by its person isn't made again
    return feed;
}

// The card shows what the template says only when it is of its kind.
Outcome<Done> takeKind(const Feed& feed, const Platform& platform) {
    const auto kind = std::ranges::find_if(feed.first, [](const auto& text) { return text.starts_with("kind="); });
    if (kind == feed.first.end()) return Done{};
    const auto designs = openDesigns(platform);
    if (!designs) return designs.failure();
    const auto index = findWithId(designs->specs, feed.design);
    if (!index || !*index) return Done{};
    WidgetSpec spec = designs->specs[**index];
    if (const auto assigned = assign({*assignment(*kind)}, spec, platform); !assigned) return assigned.failure();
    const auto change = Changes::replacing(designs->specs, **index, std::move(spec));
    if (!change) return change.failure();
    const auto saved = saveChange(*designs, *change, platform);
    if (!saved) return saved.failure();
    return Done{};
}

Outcome<Done> change(const std::function<Outcome<Done>(Feeds&)>& wanted, const Platform& platform) {
    const auto changed = changeFeeds(wanted, platform);
    if (!changed) return changed.failure();
    return Done{};
}

Outcome<Done> changeOne(const std::string& name, const std::function<Outcome<Done>(Feeds&, Feeds::iterator)>& wanted,
                        const Platform& platform) {
    return change(
        [&](Feeds& feeds) -> Outcome<Done> {
            if (const auto found = findFeed(feeds, name); !found) return found.failure();
            return wanted(feeds, std::ranges::find(feeds, name, &Feed::name));
        },
        platform);
}

}  // namespace

Outcome<std::string> putFeed(std::string json, const WidgetSpec& design, const Platform& platform) {
    const auto wanted = readWanted(std::move(json));
    if (!wanted) return wanted.failure();
    if (!wanted->name.empty()) {
        const auto edit = [&](Feeds&, Feeds::iterator feed) -> Outcome<Done> {
            if (const auto run = assignRun(*wanted, *feed, platform); !run) return run;
            return assignTimes(*wanted, *feed);
        };
        if (const auto changed = changeOne(wanted->name, edit, platform); !changed) return changed.failure();
        return wanted->name;
    }
    auto feed = newFeed(*wanted, design, platform);
    if (!feed) return feed.failure();
    if (const auto timed = assignTimes(*wanted, *feed); !timed) return timed.failure();
    if (const auto taken = takeKind(*feed, platform); !taken) return taken.failure();
    const auto add = [&](Feeds& feeds) -> Outcome<Done> {
        feed->name = freeName(feed->name, feeds);
        feeds.push_back(*feed);
        return Done{};
    };
    if (const auto added = change(add, platform); !added) return added.failure();
    return feed->name;
}

Outcome<Done> pauseFeed(const std::string& name, Pause pause, const Platform& platform) {
    const auto set = [&](Feeds&, Feeds::iterator feed) -> Outcome<Done> {
        feed->isPaused = pause == Pause::on;
        return Done{};
    };
    return changeOne(name, set, platform);
}

Outcome<Done> removeFeed(const std::string& name, const Platform& platform) {
    Feed removed;
    const auto take = [&](Feeds& feeds, Feeds::iterator feed) -> Outcome<Done> {
        removed = *feed;
        feeds.erase(feed);
        return Done{};
    };
    if (const auto taken = changeOne(name, take, platform); !taken) return taken.failure();
    return takeNoNewsBack(removed, platform);
}

}  // namespace orvel::designer
