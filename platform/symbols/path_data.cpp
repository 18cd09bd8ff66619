#include "platform/symbols/path_data.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace orvel {
namespace {

std::optional<SymbolOutline::Segment> segment(char command) {
    using Verb = SymbolOutline::Verb;
    if (command == 'M') return {{Verb::move, {}}};
    if (command == 'L') return {{Verb::line, {}}};
    if (command == 'Q') return {{Verb::quadratic, {}}};
    if (command == 'C') return {{Verb::cubic, {}}};
    return std::nullopt;
}

}  // namespace

SymbolOutline outlineOfPathData(std::string_view text) {
    SymbolOutline result;
    const char* next = text.data();
    const char* const end = next + text.size();
    const auto number = [&] {
        int value = 0;
        next = std::from_chars(std::min(next + 1, end), end, value).ptr;
        return value / 100.0;
    };
    while (next != end) {
        const char command = *next++;
        if (command == 'Z' || command == ' ') continue;
        auto read = segment(command);
        if (!read) break;
        const int points = read->verb == SymbolOutline::Verb::cubic       ? 3
                           : read->verb == SymbolOutline::Verb::quadratic ? 2
                                                                          : 1;
        for (int i = 0; i < points; ++i) {
            read->points[i].x = number();
            read->points[i].y = number();
        }
        result.segments.push_back(*read);
    }
    return result;
}

}  // namespace orvel
