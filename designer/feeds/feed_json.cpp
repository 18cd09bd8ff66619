#include "designer/feeds/feed_json.h"

#include "designer/feeds/command_text.h"
#include "feeds/templates.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"

namespace orvel::designer {
namespace {

// The valid beginning of what a program printed.
std::string_view text(const std::string& bytes) {
    return std::string_view(bytes).substr(0, unicode::validLength(bytes));
}

void writeDate(json::Writer& writer, const char* name, const std::optional<Date>& date) {
    if (date) writer.key(name).string(iso8601::format(*date));
}

void writeConditions(json::Writer& writer, bool pausesOnBattery, bool whenOnline) {
    writer.key("onBattery").string(pausesOnBattery ? "pause" : "run").key("whenOnline").boolean(whenOnline);
}

void writeNews(json::Writer& writer, const FeedNews& news) {
    writer.key("failures").integer(news.now.failures);
    writeDate(writer, "news", news.now.news);
    writeDate(writer, "next", news.now.next);
    writer.key("results").beginArray();
    for (const FeedStatus& result : news.results) {
        writer.beginObject();
        writeDate(writer, "date", result.last);
        writer.key("seconds").number(result.seconds);
        if (result.failure) writer.key("failure").string(unicode::onOneLine(*result.failure));
        writer.endObject();
    }
    writer.endArray();
}

void writeFeed(json::Writer& writer, const Feed& feed, const FeedsToShow& shown, const FeedRuns& runs) {
    writer.beginObject().key("name").string(feed.name).key("command").string(commandText(feed.command));
    writer.key("every").string(orvel::text(feed.every)).key("timeout").string(orvel::text(feed.timeout));
    writer.key("isPaused").boolean(feed.isPaused);
    writeConditions(writer, feed.pausesOnBattery, feed.whenOnline);
    const auto news = shown.news.find(feed.name);
    writeNews(writer, news == shown.news.end() ? FeedNews() : news->second);
    if (const FeedRuns::Run* const run = runs.last(feed.name)) {
        writer.key("run").beginObject().key("isRunning").boolean(run->isRunning);
        writer.key("hasFailed").boolean(run->hasFailed).key("said").string(text(run->said)).endObject();
    }
    writer.endObject();
}

void writeTemplate(json::Writer& writer, const FeedTemplate& source) {
    const Feed feed = feedFrom(source, {});
    writer.beginObject().key("name").string(source.name).key("arguments").string(source.arguments);
    writer.key("needs").string(source.needs).key("every").string(source.every);
    writer.key("timeout").string(orvel::text(feed.timeout));
    writeConditions(writer, source.pausesOnBattery, source.whenOnline);
    constexpr std::string_view kind = "kind=";
    for (const std::string& first : feed.first)
        if (first.starts_with(kind)) writer.key("kind").string(std::string_view(first).substr(kind.size()));
    writer.endObject();
}

}  // namespace

void FeedNews::take(const FeedStatus& status) {
    constexpr std::size_t mostResults = 5;
    now = status;
    if (!status.last) return;
    if (results.empty() || results.front().last != status.last) results.insert(results.begin(), status);
    results.front() = status;
    if (results.size() > mostResults) results.pop_back();
}

std::string feedsJson(const FeedsToShow& shown, const FeedRuns& runs) {
    json::Writer writer;
    writer.beginObject().key("served").boolean(shown.isServed).key("trouble").string(shown.trouble);
    writer.key("feeds").beginArray();
    for (const Feed& feed : shown.feeds) writeFeed(writer, feed, shown, runs);
    writer.endArray().key("templates").beginArray();
    for (const FeedTemplate& source : feedTemplates) writeTemplate(writer, source);
    return writer.endArray().endObject().finish().value_or("{}");
}

}  // namespace orvel::designer
