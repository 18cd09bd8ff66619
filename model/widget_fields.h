// The fields of a design in one table, in the order in which they are stored and compared. All code that handles every
// field (the constructor, comparing, reading, writing, changing) walks this table.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "model/widget_spec.h"

namespace orvel {

/// What the constructor does when its caller leaves the field out.
enum class WhenLeftOut { refuse, fillIn, leaveAbsent };

template <WidgetField fieldOfRow, class Member, class Given>
struct WidgetFieldRow {
    static constexpr WidgetField field = fieldOfRow;
    using Value = Member;

    std::string_view name;  ///< also its name in JSON
    Member WidgetSpec::*member;
    Given WidgetSpec::Fields::*given;
    WhenLeftOut whenLeftOut;
    Member (*limited)(Member) = nullptr;  ///< the part of a value that the constructor keeps; absent: all of it

    /// Whether a stored record may lack it.
    constexpr bool isOptional() const { return whenLeftOut == WhenLeftOut::leaveAbsent; }

    Member& in(WidgetSpec& spec) const { return spec.*member; }
    const Member& in(const WidgetSpec& spec) const { return spec.*member; }
    Given& in(WidgetSpec::Fields& fields) const { return fields.*given; }
};

namespace widget_limits {

inline constexpr std::size_t mostItems = 5;

/// The first `mostItems`.
std::optional<std::vector<std::string>> items(std::optional<std::vector<std::string>> items);
/// From 0 to 1; not-a-number becomes 0.
std::optional<double> progress(std::optional<double> progress);

}  // namespace widget_limits

namespace widget_fields {

template <WidgetField field, class Member, class Given>
constexpr auto row(std::string_view name, Member WidgetSpec::*member, Given WidgetSpec::Fields::*given,
                   WhenLeftOut whenLeftOut, Member (*limited)(Member) = nullptr) {
    return WidgetFieldRow<field, Member, Given>{name, member, given, whenLeftOut, limited};
}

using Spec = WidgetSpec;
using Given = WidgetSpec::Fields;
using enum WidgetField;
using enum WhenLeftOut;

inline constexpr std::tuple table{
    row<id>("id", &Spec::id, &Given::id, fillIn),
    row<title>("title", &Spec::title, &Given::title, refuse),
    row<kind>("kind", &Spec::kind, &Given::kind, refuse),
    row<accentHex>("accentHex", &Spec::accentHex, &Given::accentHex, fillIn),
    row<symbol>("symbol", &Spec::symbol, &Given::symbol, fillIn),
    row<primary>("primary", &Spec::primary, &Given::primary, leaveAbsent),
    row<secondary>("secondary", &Spec::secondary, &Given::secondary, leaveAbsent),
    row<items>("items", &Spec::items, &Given::items, leaveAbsent, widget_limits::items),
    row<progress>("progress", &Spec::progress, &Given::progress, leaveAbsent, widget_limits::progress),
    row<targetISO8601>("targetISO8601", &Spec::targetISO8601, &Given::targetISO8601, leaveAbsent),
    row<createdAt>("createdAt", &Spec::createdAt, &Given::createdAt, fillIn),
};

/// Fails to compile when WidgetSpec has more or fewer members than the table has rows.
inline void countMembers(const WidgetSpec& spec) {
    const auto& [a, b, c, d, e, f, g, h, i, j, k] = spec;
    (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)g, (void)h, (void)i, (void)j, (void)k;
    static_assert(std::tuple_size_v<decltype(table)> == 11, "a member of WidgetSpec has no row in this table");
}

}  // namespace widget_fields

/// Calls `visit` with each row.
template <class Visit>
constexpr void forEachWidgetField(Visit visit) {
    std::apply([&](const auto&... rows) { (visit(rows), ...); }, widget_fields::table);
}

/// Calls `visit` with the row for which `isWanted(row)` holds first, and returns what it returns; `otherwise` if there
/// is none.
template <class Result, class IsWanted, class Visit>
constexpr Result withWidgetField(IsWanted isWanted, Visit visit, Result otherwise) {
    std::optional<Result> result;
    std::apply([&](const auto&... rows) { (void)((isWanted(rows) && (result.emplace(visit(rows)), true)) || ...); },
               widget_fields::table);
    return result ? *std::move(result) : std::move(otherwise);
}

/// Its name in JSON, which is the member's name.
std::string_view name(WidgetField field);

}  // namespace orvel
