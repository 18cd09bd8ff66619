#include "model/widget_spec_json.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

#include "model/widget_fields.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using Reason = DecodingFailure::Reason;

struct Fault {
    Reason reason;
    std::string detail = {};
};

Fault mismatch(const json::Value& value, std::string_view wanted) {
    const bool isNull = value.kind() == json::Kind::null;
    return {isNull ? Reason::valueNotFound : Reason::typeMismatch,
            sentence("{0}; {1} is wanted", sentence(name(value.kind())), sentence(wanted))};
}

// Each of these reads one value into a field. The result is absent on success, and for bad syntax, which the JSON
// reader reports itself.
using WhyNot = std::optional<Fault>;

WhyNot read(json::Value& value, std::string& field) {
    if (value.kind() != json::Kind::string) return mismatch(value, toTranslate("a string"));
    if (const auto string = value.string()) field = *string;
    return std::nullopt;
}

WhyNot read(json::Value& value, double& field) {
    if (value.kind() != json::Kind::number) return mismatch(value, toTranslate("a number"));
    if (const auto number = value.number()) field = *number;
    return std::nullopt;
}

WhyNot read(json::Value& value, Date& field) {
    return read(value, field.timeIntervalSinceReferenceDate);
}

WhyNot read(json::Value& value, WidgetSpec::Kind& field) {
    if (value.kind() != json::Kind::string) return mismatch(value, toTranslate("a string"));
    const auto string = value.string();
    if (!string) return std::nullopt;
    const auto known = kindFromRawValue(*string);
    if (!known) return Fault{Reason::unknownKind, didYouMean(*string, kindNames())};
    field = *known;
    return std::nullopt;
}

WhyNot read(json::Value& value, std::vector<std::string>& field) {
    if (value.kind() != json::Kind::array) return mismatch(value, toTranslate("an array of strings"));
    WhyNot whyNot;
    value.elements([&](json::Value& element) {
        auto fault = read(element, field.emplace_back());
        if (fault && !whyNot) whyNot = Fault{fault->reason, sentence("an array with {0}", fault->detail)};
        return true;
    });
    return whyNot;
}

template <class Value>
WhyNot read(json::Value& value, std::optional<Value>& field) {
    if (value.kind() == json::Kind::null) return std::nullopt;
    return read(value, field.emplace());
}

DecodingFailure decodingFailure(Fault fault, std::string key, const json::Value& value) {
    return {fault.reason, std::move(key), std::nullopt, value.position(), std::move(fault.detail)};
}

// Decodes records, one after the other, into a WidgetSpec or into the constructor's arguments. A record is always read
// to its end; of several faults, the one whose field is judged first is reported.
template <class Record>
class RecordDecoder {
public:
    // False when the record isn't a design; `failure` then says why, unless the syntax is bad.
    bool decode(json::Value& value, Record& record) {
        seen_ = 0;
        rank_ = std::numeric_limits<std::size_t>::max();
        if (value.kind() != json::Kind::object) {
            failure = decodingFailure(mismatch(value, toTranslate("a design, which is an object {…},")), {}, value);
            return false;
        }
        if (!value.members([&](std::string_view name, json::Value& member) { return take(name, member, record); }))
            return false;
        forEachWidgetField([&](const auto& row) {
            if (isRequired(row) && (seen_ & bit(row.field)) == 0) note({Reason::keyNotFound}, row.field, value);
        });
        return !failure;
    }

    std::optional<DecodingFailure> failure;

private:
    static constexpr unsigned bit(WidgetField field) { return 1U << static_cast<unsigned>(field); }

    // Fields that a person leaves out are filled in by the constructor, if it has a default for them.
    static bool isRequired(const auto& row) {
        return std::is_same_v<Record, WidgetSpec> ? !row.isOptional() : row.whenLeftOut == WhenLeftOut::refuse;
    }

    bool take(std::string_view name, json::Value& value, Record& record) {
        return withWidgetField([&](const auto& row) { return row.name == name; },
                               [&](const auto& row) {
                                   if ((seen_ & bit(row.field)) != 0) return true;
                                   seen_ |= bit(row.field);
                                   if (auto fault = readInto(row, value, record)) note(*fault, row.field, value);
                                   return true;
                               },
                               true);
    }

    template <class Row>
    static WhyNot readInto(const Row& row, json::Value& value, Record& record) {
        auto& field = row.in(record);
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, typename Row::Value>)
            return read(value, field);
        else
            return read(value, field.emplace());  // optional only for the constructor
    }

    void note(const Fault& fault, WidgetField field, const json::Value& value) {
        const std::size_t rank = judgingRank(field);
        if (rank >= rank_) return;
        rank_ = rank;
        failure = decodingFailure(fault, std::string(orvel::name(field)), value);
    }

    // First required texts, then the kind, optional texts, and the rest.
    static std::size_t judgingRank(WidgetField field) {
        using enum WidgetField;
        constexpr WidgetField order[]{id,        title,         accentHex, symbol,   kind,     primary,
                                      secondary, targetISO8601, items,     progress, createdAt};
        static_assert(std::size(order) == std::tuple_size_v<decltype(widget_fields::table)>, "a field has no rank");
        return static_cast<std::size_t>(std::find(std::begin(order), std::end(order), field) - order);
    }

    unsigned seen_ = 0;  // one bit for each field
    std::size_t rank_ = 0;
};

WidgetSpec blank() {
    return WidgetSpec(
        {.id = "", .title = "", .kind = WidgetSpec::Kind::metric, .accentHex = "", .symbol = "", .createdAt = Date{}});
}

DecodingFailure malformed(json::SyntaxFailure failure) {
    return {Reason::malformed, {}, std::nullopt, failure.position, std::move(failure.reason)};
}

template <class Record>
Result<Record, DecodingFailure> decodeInto(Record record, std::string text) {
    RecordDecoder<Record> decoder;
    if (auto syntax = json::read(std::move(text), [&](json::Value& value) { return decoder.decode(value, record); }))
        return malformed(std::move(*syntax));
    if (decoder.failure) return std::move(*decoder.failure);
    return record;
}

void writeValue(json::Writer& writer, const std::string& value) {
    writer.string(value);
}

void writeValue(json::Writer& writer, WidgetSpec::Kind value) {
    writer.string(rawValue(value));
}

void writeValue(json::Writer& writer, double value) {
    writer.number(value);
}

void writeValue(json::Writer& writer, Date value) {
    writer.number(value.timeIntervalSinceReferenceDate);
}

void writeValue(json::Writer& writer, const std::vector<std::string>& value) {
    writer.beginArray();
    for (const auto& item : value) writer.string(item);
    writer.endArray();
}

template <class Value>
void writeMember(json::Writer& writer, std::string_view name, const Value& value) {
    writeValue(writer.key(name), value);
}

template <class Value>
void writeMember(json::Writer& writer, std::string_view name, const std::optional<Value>& value) {
    if (value) writeValue(writer.key(name), *value);
}

}  // namespace

std::string DecodingFailure::message() const {
    const std::string where = index ? sentence("design @{0}", *index + 1) + ": " : "";
    const std::string what = key.empty() ? (index ? sentence("it") : sentence("this")) : '"' + key + '"';
    switch (reason) {
        case Reason::malformed: return where + sentence("not valid JSON: {0}", detail);
        case Reason::keyNotFound: return where + sentence("{0} is missing", what);
        case Reason::valueNotFound:
        case Reason::typeMismatch: return where + sentence("{0} is {1}", what, detail);
        case Reason::unknownKind:
            return where + clauses(sentence("{0} must be {1}", what, alternatives(kindNames())), detail);
    }
    return where;
}

namespace WidgetSpecJSON {

Result<WidgetSpec, DecodingFailure> decode(std::string text) {
    return decodeInto(blank(), std::move(text));
}

Result<WidgetSpec::Fields, DecodingFailure> decodeFields(std::string text) {
    return decodeInto(WidgetSpec::Fields{.title = "", .kind = WidgetSpec::Kind::metric}, std::move(text));
}

Result<std::vector<WidgetSpec>, DecodingFailure> decodeList(std::string text) {
    std::vector<WidgetSpec> specs;
    const WidgetSpec empty = blank();
    RecordDecoder<WidgetSpec> decoder;
    const auto element = [&](json::Value& value) { return decoder.decode(value, specs.emplace_back(empty)); };
    const auto list = [&](json::Value& value) {
        if (value.kind() == json::Kind::array) return value.elements(element);
        decoder.failure =
            decodingFailure(mismatch(value, toTranslate("a list of designs, which is an array […],")), {}, value);
        return false;
    };

    auto syntax = json::read(std::move(text), list);
    if (!syntax && !decoder.failure) return specs;
    if (syntax) return malformed(std::move(*syntax));
    if (!specs.empty()) decoder.failure->index = specs.size() - 1;
    return std::move(*decoder.failure);
}

std::optional<WidgetSpec> read(json::Value& value) {
    WidgetSpec spec = blank();
    if (!RecordDecoder<WidgetSpec>().decode(value, spec)) return std::nullopt;
    return spec;
}

void write(json::Writer& writer, const WidgetSpec& spec) {
    writer.beginObject();
    forEachWidgetField([&](const auto& row) { writeMember(writer, row.name, row.in(spec)); });
    writer.endObject();
}

std::optional<std::string> encode(const WidgetSpec& spec) {
    json::Writer writer;
    write(writer, spec);
    return writer.finish();
}

std::optional<std::string> encodeList(const std::vector<WidgetSpec>& specs) {
    json::Writer writer;
    writer.beginArray();
    for (const auto& spec : specs) write(writer, spec);
    writer.endArray();
    return writer.finish();
}

}  // namespace WidgetSpecJSON
}  // namespace orvel
