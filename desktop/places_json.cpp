#include "desktop/places_json.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "desktop/place_words.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::PlacesJSON {
namespace {

using Which = OutputChoice::Which;

constexpr double largestMargin = 10000;

std::optional<DesignPosition> position(std::string_view text) {
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    if (!text.starts_with('@')) return std::nullopt;
    const auto [parsed, error] = std::from_chars(text.data() + 1, end, number);
    if (error != std::errc{} || parsed != end || number == 0) return std::nullopt;
    return DesignPosition{number};
}

class Decoder {
public:
    bool decode(json::Value& value, std::vector<Place>& places) {
        if (value.kind() != json::Kind::array) return fail(sentence("the places must be a list, in brackets"), value);
        return value.elements([&](json::Value& element) { return decode(element, places.emplace_back()); });
    }

    std::optional<TextFault> fault;

private:
    bool decode(json::Value& value, Place& place) {
        if (value.kind() != json::Kind::object) return fail(sentence("a place must be an object, in braces"), value);
        const std::size_t start = value.offset();
        bool hasDesign = false;
        const bool isRead = value.members([&](std::string_view name, json::Value& member) {
            hasDesign = hasDesign || name == "design";
            return take(name, member, place);
        });
        if (isRead && !hasDesign)
            fault = TextFault{sentence("\"design\" is missing: an id, or a position such as \"@1\""), start};
        return isRead && hasDesign;
    }

    bool take(std::string_view name, json::Value& value, Place& place) {
        if (name == "design") return design(value, place.design);
        if (name == "family") return word(name, value, place_words::families, place.family);
        if (name == "anchor") return word(name, value, place_words::anchors, place.place.anchor);
        if (name == "margin") return margin(value, place.place.margin);
        if (name == "output") return output(value, place.place.output);
        if (name == "layer") return word(name, value, place_words::layers, place.place.layer);
        if (name == "click") return text(name, value, place.click.emplace());
        return true;
    }

    bool text(std::string_view name, json::Value& value, std::string& field) {
        if (value.kind() != json::Kind::string) return fail(sentence("\"{0}\" must be a text", name), value);
        const auto string = value.string();
        if (string) field = *string;
        return string.has_value();
    }

    bool design(json::Value& value, PlacedDesign& field) {
        std::string reference;
        const std::size_t offset = value.offset();
        if (!text("design", value, reference)) return false;
        if (reference.empty())
            return fail(sentence("\"design\" is empty: it is an id, or a position such as \"@1\""), offset);
        if (const auto found = position(reference))
            field = *found;
        else
            field = std::move(reference);
        return true;
    }

    template <class Table, class Value>
    bool word(std::string_view name, json::Value& value, const Table& table, Value& field) {
        std::string given;
        const std::size_t offset = value.offset();
        if (!text(name, value, given)) return false;
        const auto found = place_words::valueOf(table, given);
        if (!found)
            return fail(sentence("\"{0}\" must be {1}, not \"{2}\"", name, alternatives(place_words::words(table)),
                                 unicode::onOneLine(given)),
                        offset);
        field = *found;
        return true;
    }

    bool margin(json::Value& value, Margin& field) {
        std::vector<double> numbers;
        const std::size_t offset = value.offset();
        if (value.kind() == json::Kind::array) {
            const bool isRead = value.elements([&](json::Value& element) {
                const auto number = element.kind() == json::Kind::number ? element.number() : std::nullopt;
                numbers.push_back(number.value_or(-1));
                return element.kind() != json::Kind::number || number.has_value();
            });
            if (!isRead) return false;
        }
        const auto isMargin = [](double number) { return number >= 0 && number <= largestMargin; };
        if (numbers.size() != 2 || !std::ranges::all_of(numbers, isMargin))
            return fail(sentence("\"margin\" must be two numbers from 0 to 10000, such as [24,24]"), offset);
        field = {numbers[0], numbers[1]};
        return true;
    }

    bool output(json::Value& value, OutputChoice& field) {
        std::string name;
        if (!text("output", value, name)) return false;
        field = name == "primary" ? OutputChoice{Which::primary}
                : name == "all"   ? OutputChoice{Which::all}
                                  : OutputChoice{Which::named, name};
        return true;
    }

    bool fail(std::string reason, const json::Value& value) { return fail(std::move(reason), value.offset()); }
    bool fail(std::string reason, std::size_t offset) {
        fault = TextFault{std::move(reason), offset};
        return false;
    }
};

std::string outputWord(const OutputChoice& output) {
    switch (output.which) {
        case Which::all: return "all";
        case Which::named: return output.name;
        case Which::any:
        case Which::primary: break;
    }
    return "primary";
}

}  // namespace

Result<std::vector<Place>, TextFault> decode(std::string text) {
    std::vector<Place> places;
    Decoder decoder;
    if (const auto syntax =
            json::read(std::move(text), [&](json::Value& value) { return decoder.decode(value, places); }))
        return TextFault{sentence("not valid JSON: {0}", syntax->reason), syntax->position.offset};
    if (decoder.fault) return *std::move(decoder.fault);
    return places;
}

std::string encode(const std::vector<Place>& places) {
    std::string lines;
    for (const Place& place : places) {
        json::Writer writer;
        writer.beginObject().key("design").string(text(place.design));
        writer.key("family").string(place_words::wordFor(place_words::families, place.family));
        writer.key("anchor").string(place_words::wordFor(place_words::anchors, place.place.anchor));
        writer.key("margin").beginArray().number(place.place.margin.x).number(place.place.margin.y).endArray();
        writer.key("output").string(outputWord(place.place.output));
        writer.key("layer").string(place_words::wordFor(place_words::layers, place.place.layer));
        if (place.click) writer.key("click").string(*place.click);
        lines += (lines.empty() ? "" : ",\n") + writer.endObject().finish().value_or("");
    }
    return "[" + lines + "]\n";
}

}  // namespace orvel::PlacesJSON
