#include "tools/design_warnings.h"

#include <map>
#include <sstream>

#include "format/hex_color.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"
#include "tools/terminal.h"

namespace orvel::tools {
namespace {

using Kind = WidgetSpec::Kind;

std::string inQuotes(std::string_view text) {
    constexpr std::size_t longest = 60;
    const auto shown = unicode::prefix(text, longest);
    return '"' + printable(shown) + (shown.size() < text.size() ? "…\"" : "\"");
}

std::optional<std::string> aboutTarget(const std::optional<std::string>& target) {
    if (!target) return "a countdown without a target shows \"—\"";
    if (iso8601::dateTime(*target) || iso8601::fullDate(*target)) return std::nullopt;
    if (iso8601::fullDate(unicode::prefix(*target, 10)))
        return "target " + inQuotes(*target) + " counts to local midnight; its time of day is dropped";
    return "target " + inQuotes(*target) + " is no date; the card shows \"—\"";
}

std::optional<std::string> aboutSymbol(const std::string& symbol, const Symbols& symbols) {
    if (symbols.contains(symbol)) return std::nullopt;
    const auto nearest = symbols.nearest(symbol);
    return "symbol " + inQuotes(symbol) + " can't be drawn" + (nearest ? "; the nearest is \"" + *nearest + '"' : "");
}

std::optional<std::string> aboutProgress(const std::optional<double>& progress) {
    if (!progress) return "a progress card without progress shows 0 %";
    if (*progress >= 0 && *progress <= 1) return std::nullopt;
    std::ostringstream line;
    line << "progress " << *progress << " is not from 0 to 1";
    return line.str();
}

}  // namespace

std::vector<std::string> warnings(const WidgetSpec& spec, const Symbols& symbols) {
    std::vector<std::string> lines;
    const auto add = [&](std::optional<std::string> line) {
        if (line) lines.push_back(*std::move(line));
    };
    if (!HexColor::hexString(spec.accentHex))
        add("accent " + inQuotes(spec.accentHex) + " is no colour; the standard accent is used");
    if (spec.kind != Kind::list) add(aboutSymbol(spec.symbol, symbols));
    if (spec.kind == Kind::countdown) add(aboutTarget(spec.targetISO8601));
    if (spec.kind == Kind::progress) add(aboutProgress(spec.progress));
    if (spec.kind == Kind::list && spec.items && spec.items->size() > 5)
        add(std::to_string(spec.items->size()) + " items, of which 5 are shown");
    return lines;
}

std::vector<std::string> warnings(const std::vector<WidgetSpec>& specs, const Symbols& symbols) {
    std::vector<std::string> lines;
    std::map<std::string, std::size_t> firstWithId;
    for (std::size_t i = 0; i < specs.size(); ++i) {
        const std::string position = "design @" + std::to_string(i + 1) + ": ";
        for (const std::string& line : warnings(specs[i], symbols)) lines.push_back(position + line);
        const auto [first, isNew] = firstWithId.try_emplace(unicode::decomposed(specs[i].id), i);
        if (!isNew)
            lines.push_back(position + "the id " + inQuotes(specs[i].id) + " is design @" +
                            std::to_string(first->second + 1) + "'s too");
    }
    return lines;
}

}  // namespace orvel::tools
