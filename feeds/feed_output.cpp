#include "feeds/feed_output.h"

#include <algorithm>
#include <string_view>

#include "authoring/number_text.h"
#include "model/widget_fields.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using json::Kind;

bool isField(std::string_view word) {
    return std::ranges::any_of(fieldTexts(),
                               [&](const FieldText& row) { return word == row.name || word == name(row.field); });
}

// A row of a list, whatever the member is called.
std::string rowName() {
    return std::string(typedName(WidgetField::items));
}

Failure notOurs() {
    return {sentence("\"id\" isn't a feed's to change"), Failure::Cause::content};
}

class ObjectReader {
public:
    bool member(std::string_view field, json::Value& value) {
        if (field == "id") return fail(notOurs().reason);
        switch (value.kind()) {
            case Kind::null: output.unset.emplace_back(field); return true;
            case Kind::array: return rows(std::string(field), value);
            case Kind::string:
            case Kind::number: return scalar(std::string(field), value);
            case Kind::boolean:
            case Kind::object: break;
        }
        return fail(sentence("\"{0}\" is {1}; a text, a number, a list of texts or null is wanted",
                             unicode::onOneLine(field), sentence(json::name(value.kind()))));
    }

    FeedOutput output;
    std::string fault;

private:
    bool scalar(std::string field, json::Value& value) {
        if (value.kind() == Kind::string) {
            const auto text = value.string();
            if (text) output.assignments.push_back({std::move(field), std::string(*text)});
            return text.has_value();
        }
        const auto number = value.number();
        if (number) output.assignments.push_back({std::move(field), json::Writer().number(*number).finish().value()});
        return number.has_value();
    }

    bool rows(const std::string& field, json::Value& value) {
        if (field != "items" && field != rowName())
            return fail(sentence("\"{0}\" is a list; only \"items\" may be one", unicode::onOneLine(field)));
        const std::size_t before = output.assignments.size();
        const bool isRead = value.elements([&](json::Value& element) {
            const bool isScalar = element.kind() == Kind::string || element.kind() == Kind::number;
            return isScalar ? scalar(rowName(), element) : fail(sentence("\"items\" must be a list of texts"));
        });
        if (isRead && output.assignments.size() == before) output.unset.emplace_back("items");
        return isRead;
    }

    bool fail(std::string reason) {
        fault = std::move(reason);
        return false;
    }
};

Outcome<FeedOutput> readObject(const std::string& text) {
    ObjectReader reader;
    const auto syntax = json::read(text, [&](json::Value& value) {
        return value.members([&](std::string_view field, json::Value& member) { return reader.member(field, member); });
    });
    if (syntax)
        return Failure{sentence("its output is no valid JSON: {0}", syntax->position.text() + ": " + syntax->reason),
                       Failure::Cause::content};
    if (!reader.fault.empty()) return Failure{sentence("its output: {0}", reader.fault), Failure::Cause::content};
    return std::move(reader.output);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!unicode::trimmingWhitespace(line).empty()) lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace

bool FeedOutput::names(WidgetField field) const {
    const auto isIt = [&](std::string_view word) { return word == typedName(field) || word == name(field); };
    return std::ranges::any_of(assignments, isIt, &Assignment::field) || std::ranges::any_of(unset, isIt);
}

Outcome<FeedOutput> readOutput(const std::string& text) {
    if (!unicode::isValid(text)) return Failure{sentence("its output isn't UTF-8"), Failure::Cause::content};
    const auto lines = linesOf(text);
    if (lines.empty())
        return Failure{sentence("it printed nothing; lines such as primary=42, one JSON object or one line of text are "
                                "wanted"),
                       Failure::Cause::content};
    if (unicode::trimmingWhitespace(lines.front()).starts_with('{')) return readObject(text);

    FeedOutput output;
    for (const std::string_view line : lines) {
        const auto equals = line.find('=');
        if (equals == line.npos || !isField(line.substr(0, equals))) {
            if (lines.size() == 1) {
                output.mainText = std::string(unicode::trimmingWhitespace(line));
                return output;
            }
            const auto given = assignment(std::string(line));
            // Whoever applies it says what the field is probably called.
            if (!given) return Failure{sentence("its output: {0}", given.failure().reason), Failure::Cause::content};
        }
        output.assignments.push_back({std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))});
    }
    if (output.names(WidgetField::id)) return notOurs();
    return output;
}

Assignment mainTextOf(WidgetKind kind, const std::string& text) {
    return {std::string(typedName(mainField(kind))), text};
}

WidgetKind likelyKind(const FeedOutput& output) {
    FeedOutput given{.assignments = output.assignments};
    if (const auto& text = output.mainText) {
        const bool isPortion = text->ends_with('%') && portionText(*text);
        given.assignments.push_back(
            {std::string(name(isPortion ? WidgetField::progress : WidgetField::primary)), *text});
    }
    const auto isNamed = [&](WidgetField field) { return given.names(field); };
    return *std::ranges::max_element(allWidgetKinds, {}, [&](WidgetKind kind) {
        return std::pair(isNamed(mainField(kind)), std::ranges::count_if(shownFields(kind), isNamed));
    });
}

}  // namespace orvel
