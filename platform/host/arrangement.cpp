#include "platform/host/arrangement.h"

#include <algorithm>
#include <optional>

namespace orvel {
namespace {

using Which = OutputChoice::Which;

const Output* primaryOf(std::span<const Output> outputs) {
    const auto found =
        std::find_if(outputs.begin(), outputs.end(), [](const Output& output) { return output.primary; });
    return found != outputs.end() ? &*found : outputs.empty() ? nullptr : &outputs.front();
}

// The outputs' names; absent for the window system's choice.
std::vector<std::optional<std::string>> outputsFor(const OutputChoice& choice, std::span<const Output> outputs) {
    std::vector<std::optional<std::string>> names;
    const Output* const primary = primaryOf(outputs);
    switch (choice.which) {
        case Which::any: names.emplace_back(); break;
        case Which::named: names.emplace_back(choice.name); break;
        case Which::primary:
            if (primary) names.emplace_back(primary->name);
            break;
        case Which::all:
            for (const Output& output : outputs) names.emplace_back(output.name);
            break;
    }
    return names;
}

// Points; 0 where it isn't known.
Size roomOf(const std::optional<std::string>& name, std::span<const Output> outputs) {
    for (const Output& output : outputs)
        if (name && output.name == *name) return {output.roomWidth, output.roomHeight};
    return {0, 0};
}

struct Column {
    std::vector<std::size_t> members;  ///< positions in the group
    double width = 0;
    double height = 0;
};

std::vector<Column> columns(const std::vector<Size>& sizes, double height) {
    std::vector<Column> columns;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double grown = columns.empty() ? 0 : columns.back().height + cardGap + sizes[i].height;
        if (columns.empty() || grown > height) {
            columns.emplace_back();
            columns.back().height = sizes[i].height;
        } else {
            columns.back().height = grown;
        }
        columns.back().members.push_back(i);
        columns.back().width = std::max(columns.back().width, sizes[i].width);
    }
    return columns;
}

// One axis of a card's placement.
struct Along {
    int anchor;
    double margin;
};

// `before` lies between the card and where its column, or the columns, begin; `total` is the length of all of them.
Along along(int anchor, double margin, double before, double total, double length, double room) {
    if (anchor != 0) return {anchor, margin + before};
    if (total == length || room <= 0) return {0, margin};  // a single card is in the middle already
    return {-1, (room - total) / 2 + before};
}

/// The cards of one place.
std::vector<Placement> arrangeGroup(const std::vector<Size>& sizes, const Placement& place, Size room) {
    const double height = room.height > 0 ? room.height - 2 * place.margin.y : infinity;
    const auto [anchor, margin, output, layer] = place;
    const std::vector<Column> all = columns(sizes, height);
    double width = -cardGap;
    for (const Column& column : all) width += cardGap + column.width;

    std::vector<Placement> placements(sizes.size());
    double across = 0;
    for (const Column& column : all) {
        double down = 0;
        for (const std::size_t member : column.members) {
            const Size size = sizes[member];
            const Along x = along(anchor.horizontal, margin.x, across, width, column.width, room.width);
            const Along y = along(anchor.vertical, margin.y, down, column.height, size.height, room.height);
            placements[member] = {{x.anchor, y.anchor}, {x.margin, y.margin}, output, layer};
            down += size.height + cardGap;
        }
        across += column.width + cardGap;
    }
    return placements;
}

}  // namespace

std::vector<ArrangedCard> arrange(std::span<const CardToArrange> cards, std::span<const Output> outputs) {
    std::vector<ArrangedCard> arranged;
    for (std::size_t i = 0; i < cards.size(); ++i)
        for (auto& output : outputsFor(cards[i].place.output, outputs))
            arranged.push_back({i, {cards[i].place.anchor, cards[i].place.margin, output, cards[i].place.layer}});

    std::vector<ArrangedCard> result = arranged;
    std::vector<bool> isDone(arranged.size(), false);
    for (std::size_t first = 0; first < arranged.size(); ++first) {
        if (isDone[first]) continue;
        const Placement& place = arranged[first].placement;
        std::vector<std::size_t> group;
        std::vector<Size> sizes;
        for (std::size_t i = first; i < arranged.size(); ++i) {
            const Placement& other = arranged[i].placement;
            if (other.output != place.output || other.anchor != place.anchor || other.margin != place.margin) continue;
            isDone[i] = true;
            group.push_back(i);
            sizes.push_back(cards[arranged[i].card].size);
        }
        const auto placements = arrangeGroup(sizes, place, roomOf(place.output, outputs));
        for (std::size_t i = 0; i < group.size(); ++i) {
            result[group[i]].placement.anchor = placements[i].anchor;
            result[group[i]].placement.margin = placements[i].margin;
        }
    }
    return result;
}

}  // namespace orvel
