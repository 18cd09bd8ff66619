#include "feeds/feeds_json.h"

#include <algorithm>

#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {

std::string wrongFeedName(std::string_view name) {
    constexpr std::size_t longest = 64;
    if (name.empty()) return sentence("a feed's name is empty");
    if (name.size() > longest) return sentence("a feed's name has more than 64 bytes");
    if (name.front() == '.' || name.front() == '-') return sentence("a feed's name begins with \".\" or \"-\"");
    if (name.find('/') != name.npos) return sentence("a feed's name has \"/\" in it");
    if (unicode::onOneLine(name) != name) return sentence("a feed's name has control characters in it");
    return {};
}

namespace FeedsJSON {
namespace {

class Decoder {
public:
    bool decode(json::Value& value, std::vector<Feed>& feeds) {
        if (value.kind() != json::Kind::array)
            return fail(sentence("the feeds must be a list, in brackets"), value.offset());
        return value.elements([&](json::Value& element) {
            const std::size_t start = element.offset();
            Feed feed;
            if (!decode(element, feed)) return false;
            if (std::ranges::find(feeds, feed.name, &Feed::name) != feeds.end())
                return fail(sentence("there are two feeds named \"{0}\"", feed.name), start);
            feeds.push_back(std::move(feed));
            return true;
        });
    }

    std::optional<TextFault> fault;

private:
    bool decode(json::Value& value, Feed& feed) {
        if (value.kind() != json::Kind::object)
            return fail(sentence("a feed must be an object, in braces"), value.offset());
        const std::size_t start = value.offset();
        bool hasEvery = false;
        if (!value.members([&](std::string_view name, json::Value& member) {
                hasEvery = hasEvery || name == "every";
                return take(name, member, feed);
            }))
            return false;
        if (feed.name.empty()) return fail(sentence("{0} is missing", "\"name\""), start);
        if (!hasEvery) return fail(sentence("\"every\" is missing: an interval such as \"60s\", or \"07:30\""), start);
        if (feed.command.empty())
            return fail(sentence("\"command\" is missing: a list of a program and its arguments"), start);
        if (feed.design.empty()) feed.design = feed.name;
        return true;
    }

    bool take(std::string_view name, json::Value& value, Feed& feed) {
        const std::size_t offset = value.offset();
        std::string given;
        if (name == "name") {
            if (!text(name, value, feed.name)) return false;
            const std::string wrong = wrongFeedName(feed.name);
            return wrong.empty() || fail(wrong, offset);
        }
        if (name == "every") {
            if (!text(name, value, given)) return false;
            const auto every = everyText(given);
            if (every) feed.every = *every;
            return every || fail(every.failure().reason, offset);
        }
        if (name == "timeout") {
            if (!text(name, value, given)) return false;
            const auto timeout = durationText(given, Feed::longestTimeout);
            feed.timeout = timeout.value_or(feed.timeout);
            return timeout || fail(sentence("\"timeout\" must be from 1s to 1h, such as \"10s\""), offset);
        }
        if (name == "design") return text(name, value, feed.design);
        if (name == "command") return words(name, value, feed.command);
        if (name == "first") return words(name, value, feed.first);
        if (name == "paused") return flag(name, value, feed.isPaused);
        if (name == "whenOnline") return flag(name, value, feed.whenOnline);
        if (name == "made") return flag(name, value, feed.isMade);
        if (name != "onBattery") return true;
        if (!text(name, value, given)) return false;
        feed.pausesOnBattery = given == "pause";
        return given == "pause" || given == "run" ||
               fail(sentence("\"onBattery\" must be \"run\" or \"pause\""), offset);
    }

    bool text(std::string_view name, json::Value& value, std::string& field) {
        const std::size_t offset = value.offset();
        const bool isText = value.kind() == json::Kind::string;
        if (!isText) return fail(sentence("\"{0}\" must be a text", name), offset);
        const auto string = value.string();
        if (string) field = *string;
        return string.has_value();
    }

    bool flag(std::string_view name, json::Value& value, bool& field) {
        if (value.kind() != json::Kind::boolean)
            return fail(sentence("\"{0}\" must be true or false", name), value.offset());
        const auto given = value.boolean();
        field = given.value_or(false);
        return given.has_value();
    }

    bool words(std::string_view name, json::Value& value, std::vector<std::string>& words) {
        if (value.kind() != json::Kind::array)
            return fail(sentence("\"{0}\" must be a list of texts", name), value.offset());
        words.clear();
        return value.elements([&](json::Value& element) {
            const std::size_t offset = element.offset();
            if (!text(name, element, words.emplace_back())) return false;
            return words.back().find('\0') == std::string::npos ||
                   fail(sentence("\"{0}\" has a zero byte in it", name), offset);
        });
    }

    bool fail(std::string reason, std::size_t offset) {
        fault = TextFault{std::move(reason), offset};
        return false;
    }
};

void writeWords(json::Writer& writer, const std::vector<std::string>& words) {
    writer.beginArray();
    for (const std::string& word : words) writer.string(word);
    writer.endArray();
}

}  // namespace

Result<std::vector<Feed>, TextFault> decode(std::string text) {
    std::vector<Feed> feeds;
    Decoder decoder;
    if (const auto syntax =
            json::read(std::move(text), [&](json::Value& value) { return decoder.decode(value, feeds); }))
        return TextFault{sentence("not valid JSON: {0}", syntax->reason), syntax->position.offset};
    if (decoder.fault) return *std::move(decoder.fault);
    return feeds;
}

std::optional<std::string> encode(const std::vector<Feed>& feeds) {
    std::string lines;
    for (const Feed& feed : feeds) {
        json::Writer writer;
        writer.beginObject().key("name").string(feed.name).key("every").string(text(feed.every));
        writer.key("timeout").string(text(feed.timeout)).key("design").string(feed.design);
        writeWords(writer.key("command"), feed.command);
        if (!feed.first.empty()) writeWords(writer.key("first"), feed.first);
        if (feed.isPaused) writer.key("paused").boolean(true);
        if (feed.pausesOnBattery) writer.key("onBattery").string("pause");
        if (feed.whenOnline) writer.key("whenOnline").boolean(true);
        if (feed.isMade) writer.key("made").boolean(true);
        const auto line = writer.endObject().finish();
        if (!line) return std::nullopt;
        lines += (lines.empty() ? "" : ",\n") + *line;
    }
    return "[" + lines + "]\n";
}

}  // namespace FeedsJSON
}  // namespace orvel
