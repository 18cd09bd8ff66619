#include "tools/feeds/list.h"

#include <cstdio>
#include <string>
#include <vector>

#include "feeds/feeds.h"
#include "feeds/feeds_json.h"
#include "feeds/service.h"
#include "feeds/status.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/sole_process.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/core/terminal.h"

namespace orvel::tools {
namespace {

// The time, and the day if it isn't today.
std::string when(const std::optional<Date>& date, const Platform& platform) {
    if (!date) return "-";
    const std::string text = iso8601::format(localTime(*date, platform.timeZone));
    const std::string today = iso8601::format(localTime(platform.clock.now(), platform.timeZone)).substr(0, 10);
    return text.starts_with(today) ? text.substr(11) : text.substr(0, 10) + " " + text.substr(11, 5);
}

std::string took(const FeedStatus& status) {
    if (!status.last) return "-";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f s", status.seconds);
    return text;
}

std::string result(const FeedStatus& status) {
    if (!status.last) return sentence("not run yet");
    if (!status.failure) return sentence("good");
    const std::string why = unicode::onOneLine(*status.failure);
    if (status.failures <= 1) return why;
    return counted("{0} time: {1}", "{0} times: {1}", static_cast<std::size_t>(status.failures), why);
}

void printTable(const std::vector<Feed>& feeds, const FeedStatuses& statuses, bool isServed, const Platform& platform,
                Console& console) {
    std::vector<std::vector<std::string>> rows{{sentence("NAME"), sentence("EVERY"), sentence("LAST"), sentence("TOOK"),
                                                sentence("NEXT"), sentence("RESULT")}};
    for (const Feed& feed : feeds) {
        const auto found = statuses.find(feed.name);
        const FeedStatus status = found == statuses.end() ? FeedStatus() : found->second;
        const std::string next = feed.isPaused ? sentence("paused") : isServed ? when(status.next, platform) : "-";
        rows.push_back({unicode::onOneLine(feed.name), text(feed.every), when(status.last, platform), took(status),
                        next, result(status)});
    }
    printColumns(rows, console);
}

}  // namespace

Outcome<Done> listFeeds(FeedsForm form, const Platform& platform, Console& console) {
    const auto feeds = readFeeds(platform);
    if (!feeds) return feeds.failure();
    const FeedStatuses statuses = Statuses::read(platform);
    const bool isServed = findSole(FeedService::lockName).has_value();
    if (form == FeedsForm::json) {
        json::Writer writer;
        writer.beginObject().key("served").boolean(isServed);
        writer.key("feeds").raw(FeedsJSON::encode(*feeds).value_or("[]"));
        return printJson(writer.key("status").raw(Statuses::text(statuses)).endObject().finish(), toTranslate("a feed"),
                         console);
    }
    if (feeds->empty()) {
        console.out << sentence("there are no feeds yet; orvel feed new offers some") << '\n';
        return Done{};
    }
    printTable(*feeds, statuses, isServed, platform, console);
    if (!isServed) say(sentence("nothing serves them now; orvel feeds does"), console);
    return Done{};
}

}  // namespace orvel::tools
