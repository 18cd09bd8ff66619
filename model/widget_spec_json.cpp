#include "model/widget_spec_json.h"

#include <array>
#include <span>
#include <string_view>
#include <utility>

#include "platform/foundation/json_reader.h"

namespace orvel {
namespace {

using Reason = DecodingFailure::Reason;

enum CodingKeys {
    id,
    title,
    kind,
    accentHex,
    symbol,
    primary,
    secondary,
    items,
    progress,
    targetISO8601,
    createdAt,
    count
};

constexpr std::array<std::string_view, CodingKeys::count> names{"id",       "title",         "kind",      "accentHex",
                                                                "symbol",   "primary",       "secondary", "items",
                                                                "progress", "targetISO8601", "createdAt"};
constexpr std::array requiredOfAPerson{CodingKeys::title, CodingKeys::kind};
constexpr std::array requiredKeys{CodingKeys::id,        CodingKeys::title,  CodingKeys::kind,
                                  CodingKeys::accentHex, CodingKeys::symbol, CodingKeys::createdAt};

class RecordDecoder {
public:
    explicit RecordDecoder(std::span<const CodingKeys> required = requiredKeys) : required_(required) {}

    // Whether the record decoded last had that member.
    bool has(CodingKeys key) const { return (seen_ & 1U << key) != 0; }

    // Fills `spec`; false when the record is no design, and `failure` then says why unless the syntax is bad.
    bool decode(json::Value& value, WidgetSpec& spec) {
        seen_ = 0;
        if (value.kind() != json::Kind::object) return fail(mismatch(value), {}, value.offset());
        if (!value.members([&](std::string_view name, json::Value& member) { return take(name, member, spec); }))
            return false;
        for (const CodingKeys key : required_)
            if (!has(key)) return fail(Reason::keyNotFound, names[key], value.offset());
        return true;
    }

    std::optional<DecodingFailure> failure;

private:
    bool take(std::string_view name, json::Value& value, WidgetSpec& spec) {
        std::size_t key = 0;
        while (key < names.size() && names[key] != name) ++key;
        if (key == names.size() || has(static_cast<CodingKeys>(key))) return true;
        seen_ |= 1U << key;
        switch (static_cast<CodingKeys>(key)) {
            case CodingKeys::id: return text(value, name, spec.id);
            case CodingKeys::title: return text(value, name, spec.title);
            case CodingKeys::kind: return kindName(value, spec.kind);
            case CodingKeys::accentHex: return text(value, name, spec.accentHex);
            case CodingKeys::symbol: return text(value, name, spec.symbol);
            case CodingKeys::primary: return optionalText(value, name, spec.primary);
            case CodingKeys::secondary: return optionalText(value, name, spec.secondary);
            case CodingKeys::items: return optionalTexts(value, spec.items);
            case CodingKeys::progress:
                return value.kind() == json::Kind::null || number(value, name, spec.progress.emplace());
            case CodingKeys::targetISO8601: return optionalText(value, name, spec.targetISO8601);
            case CodingKeys::createdAt: return number(value, name, spec.createdAt.timeIntervalSinceReferenceDate);
            case CodingKeys::count: break;
        }
        return true;
    }

    bool text(json::Value& value, std::string_view name, std::string& field) {
        if (value.kind() != json::Kind::string) return fail(mismatch(value), name, value.offset());
        const auto string = value.string();
        if (string) field = *string;
        return string.has_value();
    }

    bool optionalText(json::Value& value, std::string_view name, std::optional<std::string>& field) {
        return value.kind() == json::Kind::null || text(value, name, field.emplace());
    }

    bool optionalTexts(json::Value& value, std::optional<std::vector<std::string>>& field) {
        if (value.kind() == json::Kind::null) return true;
        if (value.kind() != json::Kind::array) return fail(mismatch(value), names[CodingKeys::items], value.offset());
        auto& list = field.emplace();
        return value.elements(
            [&](json::Value& element) { return text(element, names[CodingKeys::items], list.emplace_back()); });
    }

    bool number(json::Value& value, std::string_view name, double& field) {
        if (value.kind() != json::Kind::number) return fail(mismatch(value), name, value.offset());
        const auto number = value.number();
        if (number) field = *number;
        return number.has_value();
    }

    bool kindName(json::Value& value, WidgetSpec::Kind& field) {
        if (value.kind() != json::Kind::string) return fail(mismatch(value), names[CodingKeys::kind], value.offset());
        const auto string = value.string();
        if (!string) return false;
        const auto known = kindFromRawValue(*string);
        if (!known) return fail(Reason::unknownKind, names[CodingKeys::kind], value.offset());
        field = *known;
        return true;
    }

    static Reason mismatch(const json::Value& value) {
        return value.kind() == json::Kind::null ? Reason::valueNotFound : Reason::typeMismatch;
    }

    bool fail(Reason reason, std::string_view key, std::size_t offset) {
        failure = DecodingFailure{reason, std::string(key), std::nullopt, offset, {}};
        return false;
    }

    std::span<const CodingKeys> required_;
    unsigned seen_ = 0;  // one bit per key
};

WidgetSpec blank() {
    return WidgetSpec(
        {.id = "", .title = "", .kind = WidgetSpec::Kind::metric, .accentHex = "", .symbol = "", .createdAt = Date{}});
}

DecodingFailure malformed(json::SyntaxFailure failure) {
    return {Reason::malformed, {}, std::nullopt, failure.offset, std::move(failure.reason)};
}

Result<WidgetSpec, DecodingFailure> decodeOne(std::string text, RecordDecoder& decoder) {
    WidgetSpec spec = blank();
    if (auto syntax = json::read(std::move(text), [&](json::Value& value) { return decoder.decode(value, spec); }))
        return malformed(std::move(*syntax));
    if (decoder.failure) return std::move(*decoder.failure);
    return spec;
}

void writeOptional(json::Writer& writer, CodingKeys key, const std::optional<std::string>& field) {
    if (field) writer.key(names[key]).string(*field);
}

}  // namespace

std::string DecodingFailure::message() const {
    std::string where = index ? "design @" + std::to_string(*index + 1) + ": " : "";
    const std::string what = key.empty() ? (index ? "it" : "the text") : '"' + key + '"';
    switch (reason) {
        case Reason::malformed: return where + "not valid JSON at byte " + std::to_string(offset) + ": " + detail;
        case Reason::keyNotFound: return where + what + " is missing";
        case Reason::valueNotFound: return where + what + " is null";
        case Reason::typeMismatch: return where + what + " has the wrong JSON type";
        case Reason::unknownKind: return where + what + " is none of the five kinds";
    }
    return where;
}

namespace WidgetSpecJSON {

Result<WidgetSpec, DecodingFailure> decode(std::string text) {
    RecordDecoder decoder;
    return decodeOne(std::move(text), decoder);
}

Result<WidgetSpec::Fields, DecodingFailure> decodeFields(std::string text) {
    RecordDecoder decoder(requiredOfAPerson);
    auto spec = decodeOne(std::move(text), decoder);
    if (!spec) return spec.failure();
    WidgetSpec::Fields fields{.title = std::move(spec->title), .kind = spec->kind};
    if (decoder.has(CodingKeys::id)) fields.id = std::move(spec->id);
    if (decoder.has(CodingKeys::accentHex)) fields.accentHex = std::move(spec->accentHex);
    if (decoder.has(CodingKeys::symbol)) fields.symbol = std::move(spec->symbol);
    fields.primary = std::move(spec->primary);
    fields.secondary = std::move(spec->secondary);
    fields.items = std::move(spec->items);
    fields.progress = spec->progress;
    fields.targetISO8601 = std::move(spec->targetISO8601);
    if (decoder.has(CodingKeys::createdAt)) fields.createdAt = spec->createdAt;
    return fields;
}

Result<std::vector<WidgetSpec>, DecodingFailure> decodeList(std::string text) {
    std::vector<WidgetSpec> specs;
    const WidgetSpec empty = blank();
    RecordDecoder decoder;
    const auto element = [&](json::Value& value) { return decoder.decode(value, specs.emplace_back(empty)); };
    const auto list = [&](json::Value& value) {
        if (value.kind() == json::Kind::array) return value.elements(element);
        decoder.failure = DecodingFailure{Reason::typeMismatch, {}, std::nullopt, value.offset(), {}};
        return false;
    };

    auto syntax = json::read(std::move(text), list);
    if (!syntax && !decoder.failure) return specs;
    if (syntax) return malformed(std::move(*syntax));
    if (!specs.empty()) decoder.failure->index = specs.size() - 1;
    return std::move(*decoder.failure);
}

void write(json::Writer& writer, const WidgetSpec& spec) {
    writer.beginObject();
    writer.key(names[CodingKeys::id]).string(spec.id);
    writer.key(names[CodingKeys::title]).string(spec.title);
    writer.key(names[CodingKeys::kind]).string(rawValue(spec.kind));
    writer.key(names[CodingKeys::accentHex]).string(spec.accentHex);
    writer.key(names[CodingKeys::symbol]).string(spec.symbol);
    writeOptional(writer, CodingKeys::primary, spec.primary);
    writeOptional(writer, CodingKeys::secondary, spec.secondary);
    if (spec.items) {
        writer.key(names[CodingKeys::items]).beginArray();
        for (const auto& item : *spec.items) writer.string(item);
        writer.endArray();
    }
    if (spec.progress) writer.key(names[CodingKeys::progress]).number(*spec.progress);
    writeOptional(writer, CodingKeys::targetISO8601, spec.targetISO8601);
    writer.key(names[CodingKeys::createdAt]).number(spec.createdAt.timeIntervalSinceReferenceDate);
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
