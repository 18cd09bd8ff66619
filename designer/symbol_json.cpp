#include "designer/symbol_json.h"

#include <algorithm>
#include <cmath>

#include "platform/foundation/json_writer.h"

namespace orvel::designer {
namespace {

// Tenths of a unit are finer than what a page shows.
void append(std::string& path, Point point) {
    for (const double length : {point.x, point.y}) {
        const long tenths = std::lround(length * 1000);
        path += ' ';
        if (tenths < 0) path += '-';
        path += std::to_string(std::abs(tenths) / 10);
        if (tenths % 10 != 0) path += '.' + std::to_string(std::abs(tenths) % 10);
    }
}

std::string pathData(const SymbolOutline& outline) {
    using Verb = SymbolOutline::Verb;
    std::string path;
    for (const auto& [verb, points] : outline.segments) {
        const std::size_t count = verb == Verb::cubic ? 3 : verb == Verb::quadratic ? 2 : 1;
        path += verb == Verb::move ? 'M' : verb == Verb::line ? 'L' : verb == Verb::quadratic ? 'Q' : 'C';
        for (std::size_t i = 0; i < count; ++i) append(path, points[i]);
    }
    return path;
}

}  // namespace

std::string symbolsJson(const Symbols& symbols, std::string_view words, std::size_t from) {
    constexpr std::size_t most = 120;
    const auto names = words.empty() ? symbols.names() : symbols.search(words);
    json::Writer writer;
    const std::size_t first = std::min(from, names.size());
    const std::size_t next = std::min(first + most, names.size());
    writer.beginObject().key("count").integer(static_cast<std::int64_t>(names.size()));
    writer.key("next").integer(static_cast<std::int64_t>(next)).key("symbols").beginArray();
    for (std::size_t i = first; i < next; ++i) {
        const SymbolOutline* const outline = symbols.outline(names[i]);
        if (!outline) continue;
        writer.beginObject().key("name").string(names[i]).key("path").string(pathData(*outline)).endObject();
    }
    return writer.endArray().endObject().finish().value_or("{}");
}

}  // namespace orvel::designer
