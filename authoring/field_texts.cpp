#include "authoring/field_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#include "authoring/color_names.h"
#include "authoring/number_text.h"
#include "authoring/target_text.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using enum WidgetField;
using GivenBy = FieldText::GivenBy;

constexpr std::array table{
    FieldText{kind, "kind", "", toTranslate("What the card shows")},
    FieldText{title, "title", "TEXT", toTranslate("The caption")},
    FieldText{primary, "primary", "TEXT", toTranslate("The large text")},
    FieldText{secondary, "secondary", "TEXT", toTranslate("The last line")},
    FieldText{items, "item", "TEXT", toTranslate("A row, commas included; give it again for the next")},
    FieldText{progress, "progress", "PORTION", toTranslate("How much of the ring is full: 0.38, 38% or 19/50")},
    FieldText{targetISO8601, "target", "DATE",
              toTranslate("The date: 2026-12-24, 2026-12-24T18:00:00Z, \"2026-12-24 18:00\" (local time), +3d, +5h")},
    FieldText{symbol, "symbol", "SYMBOL", toTranslate("The symbol's name; orvel symbols lists them")},
    FieldText{accentHex, "accent", "COLOUR", toTranslate("The accent colour, such as #0A84FF or orange")},
    FieldText{id, "id", "TEXT", toTranslate("Its id; one that is stored already is replaced")},
    FieldText{createdAt, "createdAt", "INSTANT", toTranslate("When it was made"), GivenBy::assignmentAlone},
};
static_assert(table.size() == std::tuple_size_v<decltype(widget_fields::table)>, "a field has no row in this table");

Failure wrong(WidgetField field, const std::string& what) {
    return {what, Failure::Cause::request, std::string(name(field))};
}

const FieldText* find(std::string_view typed) {
    for (const FieldText& row : table)
        if (typed == row.name || typed == name(row.field)) return &row;
    return nullptr;
}

// The value that a text means, by the field's type; some fields have a form of their own.
template <WidgetField field, class Value>
struct Parsed;

template <WidgetField field>
struct Parsed<field, std::string> {
    static Outcome<std::string> from(const std::string& text, const Platform&) { return text; }
};

template <>
struct Parsed<id, std::string> {
    static Outcome<std::string> from(const std::string& text, const Platform&) {
        if (!text.empty()) return text;
        return wrong(id, sentence("the id is empty; every design needs one of its own"));
    }
};

template <WidgetField field, class Value>
struct Parsed<field, std::optional<Value>> : Parsed<field, Value> {};

template <>
struct Parsed<targetISO8601, std::optional<std::string>> {
    static Outcome<std::string> from(const std::string& text, const Platform& platform) {
        return targetText(text, platform);
    }
};

template <>
struct Parsed<accentHex, std::string> {
    static Outcome<std::string> from(const std::string& text, const Platform&) { return accentText(text); }
};

template <WidgetField field>
struct Parsed<field, WidgetKind> {
    static Outcome<WidgetKind> from(const std::string& text, const Platform&) {
        if (const auto known = kindFromRawValue(text)) return *known;
        return wrong(
            field, clauses(sentence("kind \"{0}\": {1} is wanted", unicode::onOneLine(text), alternatives(kindNames())),
                           didYouMean(text, kindNames())));
    }
};

template <WidgetField field>
struct Parsed<field, double> {
    static Outcome<double> from(const std::string& text, const Platform&) {
        const auto portion = portionText(text);
        if (portion && std::isfinite(*portion)) return *portion;
        return wrong(field, sentence("{0} \"{1}\": a number from 0 to 1 is wanted, such as 0.38, 38% or 19/50",
                                     name(field), unicode::onOneLine(text)));
    }
};

template <WidgetField field>
struct Parsed<field, Date> {
    static Outcome<Date> from(const std::string& text, const Platform&) {
        if (const auto instant = iso8601::dateTime(text, iso8601::Fraction::allowed)) return *instant;
        return wrong(field, sentence("{0} \"{1}\": a date-time such as 2026-01-31T09:00:00Z is wanted", name(field),
                                     unicode::onOneLine(text)));
    }
};

// The rows of a list come one by one, or several with commas between.
template <WidgetField field>
struct Parsed<field, std::vector<std::string>> {};

void addRows(std::string_view typed, const std::string& value, std::vector<std::string>& rows) {
    if (typed == typedName(items)) return rows.push_back(value);
    for (std::size_t start = 0; start <= value.size();) {
        const std::size_t end = std::min(value.find(',', start), value.size());
        rows.emplace_back(unicode::trimmingWhitespace(std::string_view(value).substr(start, end - start)));
        start = end + 1;
    }
}

void tellLoss(const std::optional<double>& given, const std::optional<double>& kept, std::vector<Warning>& losses) {
    if (given == kept) return;
    const std::string line = sentence("progress {0} is kept as {1}", inShort(*given), inShort(*kept));
    losses.push_back({std::string(name(progress)), clauses(line, perCentMeant(*given))});
}

void tellLoss(const std::optional<std::vector<std::string>>& given, const std::optional<std::vector<std::string>>& kept,
              std::vector<Warning>& losses) {
    if (!given || given->size() == kept->size()) return;
    losses.push_back(
        {std::string(name(items)),
         counted("{0} item, of which {1} are kept", "{0} items, of which {1} are kept", given->size(), kept->size())});
}

template <class Row, class Record>
void limitField(const Row& row, Record& record, std::vector<Warning>& losses) {
    if constexpr (requires(typename Row::Value value) { tellLoss(value, value, losses); }) {
        auto kept = row.limited(row.in(record));
        tellLoss(row.in(record), kept, losses);
        row.in(record) = std::move(kept);
    }
}

std::vector<std::string_view> typedNames() {
    std::vector<std::string_view> names;
    for (const FieldText& row : table) names.push_back(row.name);
    return names;
}

Failure unknownField(std::string_view typed, const char* what, const std::vector<std::string_view>& known) {
    std::string hint = didYouMean(typed, known);
    if (hint.empty()) hint = sentence("it is {0}", alternatives(known));
    return {clauses(sentence(what, unicode::onOneLine(typed)), hint), Failure::Cause::request};
}

template <class Record>
Outcome<std::vector<Warning>> assignAll(const std::vector<Assignment>& assignments, Record& record,
                                        const Platform& platform) {
    std::vector<Warning> losses;
    std::optional<std::vector<std::string>> rows;
    for (const Assignment& each : assignments) {
        const FieldText* const found = find(each.field);
        if (!found) return unknownField(each.field, toTranslate("no field is called \"{0}\""), typedNames());
        const auto assigned = withWidgetField<Outcome<Done>>(
            [&](const auto& row) { return row.field == found->field; },
            [&](const auto& row) -> Outcome<Done> {
                using Row = std::remove_cvref_t<decltype(row)>;
                if constexpr (Row::field == items) {
                    addRows(each.field, each.value, rows ? *rows : rows.emplace());
                } else {
                    auto parsed = Parsed<Row::field, typename Row::Value>::from(each.value, platform);
                    if (!parsed) return parsed.failure();
                    row.in(record) = *std::move(parsed);
                    limitField(row, record, losses);
                }
                return Done{};
            },
            Done{});
        if (!assigned) return assigned.failure();
    }
    if (rows) {
        record.items = std::move(rows);
        forEachWidgetField([&](const auto& row) {
            if (row.field == items) limitField(row, record, losses);
        });
    }
    return losses;
}

}  // namespace

std::span<const FieldText> fieldTexts() {
    return table;
}

std::vector<std::string_view> namesOfOptionalFields() {
    std::vector<std::string_view> names;
    forEachWidgetField([&](const auto& row) {
        if (row.isOptional()) names.push_back(row.field == targetISO8601 ? "target" : row.name);
    });
    return names;
}

std::string_view typedName(WidgetField field) {
    for (const FieldText& row : table)
        if (row.field == field) return row.name;
    return name(field);
}

Outcome<Assignment> assignment(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos)
        return Failure{sentence("\"{0}\": a field and its value are wanted, such as title=\"Active now\"",
                                unicode::onOneLine(text)),
                       Failure::Cause::request};
    return Assignment{text.substr(0, equals), text.substr(equals + 1)};
}

Outcome<std::vector<Warning>> assign(const std::vector<Assignment>& assignments, WidgetSpec& spec,
                                     const Platform& platform) {
    return assignAll(assignments, spec, platform);
}

Outcome<std::vector<Warning>> assign(const std::vector<Assignment>& assignments, WidgetSpec::Fields& fields,
                                     const Platform& platform) {
    return assignAll(assignments, fields, platform);
}

std::vector<Warning> limit(WidgetSpec::Fields& fields) {
    std::vector<Warning> losses;
    forEachWidgetField([&](const auto& row) { limitField(row, fields, losses); });
    return losses;
}

std::vector<std::string_view> missingForNew(const std::vector<Assignment>& assignments) {
    std::vector<std::string_view> missing;
    for (const FieldText& text : table)
        forEachWidgetField([&](const auto& row) {
            if (row.field != text.field || row.whenLeftOut != WhenLeftOut::refuse) return;
            const auto names = [&](const Assignment& assignment) { return find(assignment.field) == &text; };
            if (std::ranges::none_of(assignments, names)) missing.push_back(text.name);
        });
    return missing;
}

Outcome<Done> unset(const std::string& typed, WidgetSpec& spec) {
    const FieldText* const found = find(typed);
    bool isOptional = false;
    forEachWidgetField([&](const auto& row) {
        if constexpr (requires { row.in(spec).reset(); })
            if (found && row.field == found->field) {
                row.in(spec).reset();
                isOptional = true;
            }
    });
    if (isOptional) return Done{};
    return unknownField(typed, toTranslate("no optional field is called \"{0}\""), namesOfOptionalFields());
}

}  // namespace orvel
