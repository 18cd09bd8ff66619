// The words for places, in the places file and on the command line: each table has the words and their meanings.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/host/timeline.h"
#include "platform/window/surface/placement.h"

namespace orvel::place_words {

template <class Value>
using Word = std::pair<std::string_view, Value>;

inline constexpr std::array families{Word<WidgetFamily>{"small", WidgetFamily::systemSmall},
                                     Word<WidgetFamily>{"medium", WidgetFamily::systemMedium}};

inline constexpr std::array anchors{
    Word<Anchor>{"top-left", {-1, -1}},   Word<Anchor>{"top", {0, -1}},   Word<Anchor>{"top-right", {1, -1}},
    Word<Anchor>{"left", {-1, 0}},        Word<Anchor>{"center", {0, 0}}, Word<Anchor>{"right", {1, 0}},
    Word<Anchor>{"bottom-left", {-1, 1}}, Word<Anchor>{"bottom", {0, 1}}, Word<Anchor>{"bottom-right", {1, 1}}};

inline constexpr std::array layers{Word<Layer>{"background", Layer::background}, Word<Layer>{"bottom", Layer::bottom},
                                   Word<Layer>{"top", Layer::top}, Word<Layer>{"overlay", Layer::overlay}};

template <class Table>
constexpr auto valueOf(const Table& table, std::string_view word)
    -> std::optional<typename Table::value_type::second_type> {
    for (const auto& [known, value] : table)
        if (known == word) return value;
    return std::nullopt;
}

template <class Table>
constexpr std::string_view wordFor(const Table& table, const typename Table::value_type::second_type& value) {
    for (const auto& [word, known] : table)
        if (known == value) return word;
    return {};
}

/// All of them, in the table's order.
template <class Table>
constexpr auto words(const Table& table) {
    std::array<std::string_view, std::tuple_size_v<Table>> all{};
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = table[i].first;
    return all;
}

}  // namespace orvel::place_words
