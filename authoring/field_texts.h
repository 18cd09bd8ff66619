// How people and scripts write a design's fields as text, in one table.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/warning.h"
#include "model/widget_fields.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct FieldText {
    enum class GivenBy { optionAndAssignment, assignmentAlone };

    WidgetField field;
    std::string_view name;         ///< what a person types; the field's own name works as well
    std::string_view placeholder;  ///< what stands for a value in a help text; empty: the names of the kinds
    std::string_view help;         ///< one sentence
    GivenBy givenBy = GivenBy::optionAndAssignment;
};

/// A row for each field, in the order in which help texts list them.
std::span<const FieldText> fieldTexts();

/// What a person types for that field.
std::string_view typedName(WidgetField field);

/// What a person types to make a field absent: "primary", "items".
std::vector<std::string_view> namesOfOptionalFields();

struct Assignment {
    std::string field;
    std::string value;
};

/// Splits "title=Active now" into field and value.
Outcome<Assignment> assignment(const std::string& text);

/// Writes the values into a design, or into the fields of a new one. Assignments of rows together replace all rows:
/// "item" is one whole row, "items" are several rows separated by commas. Values are limited as by the record's
/// constructor; the warnings say what isn't kept.
Outcome<std::vector<Warning>> assign(const std::vector<Assignment>& assignments, WidgetSpec& spec,
                                     const Platform& platform);
Outcome<std::vector<Warning>> assign(const std::vector<Assignment>& assignments, WidgetSpec::Fields& fields,
                                     const Platform& platform);

/// Limits the fields as the record's constructor does, and says what isn't kept.
std::vector<Warning> limit(WidgetSpec::Fields& fields);

/// The fields that a new design needs and the assignments don't name, as a person types them: "kind", "title".
std::vector<std::string_view> missingForNew(const std::vector<Assignment>& assignments);

/// Makes an optional field absent.
Outcome<Done> unset(const std::string& name, WidgetSpec& spec);

}  // namespace orvel
