#include "platform/symbols/name_table.h"

namespace orvel {
namespace {

// Cuts the first line off.
std::string_view nextLine(std::string_view& lines) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    return line;
}

NameTable::Entry entry(std::string_view line) {
    const std::string_view name = line.substr(0, line.find(' '));
    return {name, line.substr(std::min(name.size() + 1, line.size()))};
}

}  // namespace

NameTable::NameTable(std::string_view text) : lines_(text) {
    while (lines_.starts_with('#')) nextLine(lines_);
}

std::optional<std::string_view> NameTable::find(std::string_view name) const {
    std::string_view rest = lines_;  // what may still hold the line
    while (!rest.empty()) {
        const auto lineBreak = rest.substr(0, rest.size() / 2).rfind('\n');
        const auto start = lineBreak == rest.npos ? 0 : lineBreak + 1;
        std::string_view after = rest.substr(start);
        const Entry middle = entry(nextLine(after));
        if (middle.first == name) return middle.second;
        rest = middle.first < name ? after : rest.substr(0, start);
    }
    return std::nullopt;
}

std::vector<NameTable::Entry> NameTable::entries() const {
    std::vector<Entry> entries;
    for (std::string_view rest = lines_; !rest.empty();) entries.push_back(entry(nextLine(rest)));
    return entries;
}

}  // namespace orvel
