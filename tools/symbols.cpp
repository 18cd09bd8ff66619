#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/foundation/unicode.h"
#include "platform/host/card.h"
#include "platform/ui/localized.h"
#include "platform/symbols/symbols.h"
#include "tools/drawing.h"
#include "tools/input_output.h"
#include "tools/symbols_command.h"
#include "tools/terminal.h"

namespace orvel::tools {
namespace {

using Names = std::vector<std::string>;

constexpr Size cell{92, 72};
constexpr double margin = 24;
constexpr Alignment cellAlignment{HorizontalAlignment::center, VerticalAlignment::top};
constexpr Color background{22 / 255.0, 22 / 255.0, 25 / 255.0, 1.0};  // the cards'

Names containing(const std::string& text, Names names) {
    std::string searched = text;
    for (char& c : searched)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    std::erase_if(names, [&](const std::string& name) { return name.find(searched) == name.npos; });
    return names;
}

Failure noneContains(const std::string& text, const Symbols& symbols) {
    constexpr std::size_t longest = 60;
    std::string reason = "no symbol's name contains \"" + printable(unicode::prefix(text, longest)) + '"';
    if (const auto nearest = symbols.nearest(text)) reason += "; the nearest is \"" + *nearest + '"';
    return {std::move(reason)};
}

// Long names are broken after dots.
std::vector<std::string> lines(const std::string& name) {
    constexpr std::size_t longest = 20;
    std::vector<std::string> result{""};
    for (std::size_t first = 0; first < name.size();) {
        const std::size_t end = std::min(name.find('.', first), name.size() - 1) + 1;
        if (!result.back().empty() && result.back().size() + end - first > longest) result.emplace_back();
        result.back().append(name, first, end - first);
        first = end;
    }
    return result;
}

View cellView(const std::string& name) {
    std::vector<View> caption;
    for (const std::string& line : lines(name)) caption.push_back(Text(line).lineLimit(1).minimumScaleFactor(0.6));
    return VStack(HorizontalAlignment::center, 5)({
                                                      Image::systemName(name).font(Font::system(28)),
                                                      VStack(HorizontalAlignment::center, 0)({caption})
                                                          .font(Font::system(7.5))
                                                          .foregroundStyle(HierarchicalShapeStyle::secondary)
                                                          .frame(FixedFrame{.width = cell.width - 4}),
                                                  })
        .frame(FixedFrame{.width = cell.width, .height = cell.height, .alignment = cellAlignment});
}

struct Grid {
    View view;
    Size size;
};

// A little wider than high.
Grid grid(const Names& names) {
    const double count = static_cast<double>(names.size());
    const double columns = std::min(count, std::ceil(std::sqrt(count * 1.5 * cell.height / cell.width)));
    const auto perRow = static_cast<std::size_t>(columns);
    std::vector<View> rows;
    for (std::size_t first = 0; first < names.size(); first += perRow) {
        std::vector<View> cells;
        const std::size_t end = std::min(first + perRow, names.size());
        for (std::size_t i = first; i < end; ++i) cells.push_back(cellView(names[i]));
        rows.push_back(HStack(VerticalAlignment::top, 0)({cells}));
    }
    const double height = static_cast<double>(rows.size()) * cell.height;
    return {VStack(HorizontalAlignment::leading, 0)({rows}), {columns * cell.width, height}};
}

Outcome<Done> drawSheet(const Names& names, const std::string& output, const Platform& platform, Console& console) {
    const auto format = formatOf(output);
    if (!format) return format.failure();
    const auto [view, size] = grid(names);
    const Size sheet{size.width + 2 * margin, size.height + 2 * margin};

    const auto renderer = openRenderer();
    if (!renderer) return renderer.failure();
    const KeysThemselves words;
    Scene scene = makeScene(view.containerBackground(background, ContainerBackgroundPlacement::widget), sheet, margin,
                            {(*renderer)->text(), words}, (*renderer)->symbols());

    // All symbols there are would take a gigabyte at more.
    constexpr std::size_t mostSharp = 1000;
    const double scale = names.size() <= mostSharp ? 2 : 1;
    const Picture picture{sheet, cornerRadius, {{{0, 0}, std::move(scene)}}};
    const auto bytes = encoded(picture, *format, scale, platform.clock.now(), **renderer);
    if (!bytes) return bytes.failure();
    return writeOutput(output, *bytes, platform.files, console);
}

}  // namespace

Outcome<Done> symbols(const SymbolChoices& choices, const Platform& platform, Console& console) {
    const Symbols symbols;
    const Names names = containing(choices.text, symbols.names());
    if (names.empty()) return noneContains(choices.text, symbols);
    if (choices.picture) return drawSheet(names, *choices.picture, platform, console);
    std::string lines;
    for (const std::string& name : names) lines += name + '\n';
    return writeOutput("-", lines, platform.files, console);
}

}  // namespace orvel::tools
