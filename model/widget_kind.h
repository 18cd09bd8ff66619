// The kinds of design in one table: what each is called, and which fields its card shows. To add one, add an enumerator
// and its row: the compiler leads to the rest. Lists of kinds, options, completions, messages, help texts, the words of
// a card and the gallery follow from this.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "model/widget_field.h"

namespace orvel {

enum class WidgetKind : std::uint8_t { metric, progress, list, note, countdown };

struct WidgetKindRow {
    std::string_view name;               ///< also its form in JSON
    std::span<const WidgetField> shows;  ///< lasts as long as the process
};

namespace widget_kinds {

using enum WidgetField;

inline constexpr std::array value{accentHex, symbol, primary, title, secondary};
inline constexpr std::array remainingTime{accentHex, symbol, targetISO8601, title, secondary};
inline constexpr std::array ring{accentHex, symbol, progress, title};
inline constexpr std::array rows{accentHex, title, items};

/// Empty for a value that is no kind.
constexpr WidgetKindRow row(WidgetKind kind) {
    switch (kind) {
        case WidgetKind::metric: return {"metric", value};
        case WidgetKind::progress: return {"progress", ring};
        case WidgetKind::list: return {"list", rows};
        case WidgetKind::note: return {"note", value};
        case WidgetKind::countdown: return {"countdown", remainingTime};
    }
    return {};
}

}  // namespace widget_kinds

/// The kind's name, which is also its JSON form; empty for a value that is no kind.
constexpr std::string_view rawValue(WidgetKind kind) {
    return widget_kinds::row(kind).name;
}

/// The fields that a card of this kind shows. The span lasts as long as the process.
constexpr std::span<const WidgetField> shownFields(WidgetKind kind) {
    return widget_kinds::row(kind).shows;
}

constexpr bool shows(WidgetKind kind, WidgetField field) {
    const auto fields = shownFields(kind);
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

/// Of the fields that it shows, the one that a number or text from elsewhere is about.
constexpr WidgetField mainField(WidgetKind kind) {
    using Field = WidgetField;
    for (const Field field : {Field::primary, Field::progress, Field::items, Field::targetISO8601})
        if (shows(kind, field)) return field;
    return Field::title;
}

/// Every kind that has a name, in the order of the enumeration.
inline constexpr auto allWidgetKinds = [] {
    constexpr auto nth = [](std::size_t i) { return static_cast<WidgetKind>(i); };
    constexpr std::size_t count = [nth] {
        std::size_t named = 0;
        while (!rawValue(nth(named)).empty()) ++named;
        return named;
    }();
    std::array<WidgetKind, count> kinds{};
    for (std::size_t i = 0; i < count; ++i) kinds[i] = nth(i);
    return kinds;
}();

/// The kind of exactly that name; absent for any other text.
std::optional<WidgetKind> kindFromRawValue(std::string_view text);

/// Their names, in that order.
constexpr auto kindNames() {
    std::array<std::string_view, allWidgetKinds.size()> names{};
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = rawValue(allWidgetKinds[i]);
    return names;
}

}  // namespace orvel
