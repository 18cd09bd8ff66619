// The kinds of design. To add one, add an enumerator and its name here: the compiler leads to the rest. Lists of kinds,
// options, completions, messages and the gallery follow from this.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace orvel {

enum class WidgetKind : std::uint8_t { metric, progress, list, note, countdown };

/// The kind's name, which is also its JSON form; empty for a value that is no kind.
constexpr std::string_view rawValue(WidgetKind kind) {
    switch (kind) {
        case WidgetKind::metric: return "metric";
        case WidgetKind::progress: return "progress";
        case WidgetKind::list: return "list";
        case WidgetKind::note: return "note";
        case WidgetKind::countdown: return "countdown";
    }
    return {};
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
