#include "tools/core/terminal.h"

#include <algorithm>
#include <numeric>

#include "platform/foundation/unicode.h"

namespace orvel::tools {
namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t gap = 2;
constexpr std::size_t least = 8;  // columns that a cell keeps

std::vector<std::size_t> columnWidths(const Rows& rows, std::optional<std::size_t> most) {
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (const auto& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], unicode::columns(row[column]));
    std::size_t total = std::accumulate(widths.begin(), widths.end(), (widths.size() - 1) * gap);
    for (; most && total > *most; --total) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= least) break;
        --*widest;
    }
    return widths;
}

// Cut to that many columns, with an ellipsis where something is cut.
std::string shortened(const std::string& text, std::size_t columns) {
    if (unicode::columns(text) <= columns) return text;
    for (std::size_t characters = columns; characters > 0; --characters) {
        const std::string_view kept = unicode::prefix(text, characters);
        if (unicode::columns(kept) < columns) return std::string(kept) + "…";
    }
    return "…";
}

}  // namespace

void printColumns(const Rows& rows, Console& console) {
    if (rows.empty()) return;
    const auto widths = columnWidths(rows, console.columns);
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column)
            line += padded(shortened(row[column], widths[column]), widths[column] + gap);
        console.out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

std::string padded(std::string text, std::size_t columns) {
    const std::size_t width = unicode::columns(text);
    if (width < columns) text.append(columns - width, ' ');
    return text;
}

}  // namespace orvel::tools
