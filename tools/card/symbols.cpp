#include "tools/card/symbols.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/foundation/unicode.h"
#include "platform/host/card.h"
#include "platform/language/sentence.h"
#include "platform/symbols/symbols.h"
#include "tools/card/drawing.h"
#include "tools/core/input_output.h"

namespace orvel::tools {
namespace {

using Names = std::vector<std::string>;

constexpr Size cell{92, 72};
constexpr double margin = 24;
constexpr Alignment cellAlignment{HorizontalAlignment::center, VerticalAlignment::top};
constexpr Color background{22 / 255.0, 22 / 255.0, 25 / 255.0, 1.0};  // the cards'

Failure noneFits(const std::string& text, const Symbols& symbols) {
    constexpr std::size_t longest = 60;
    const auto nearest = symbols.nearest(text);
    return {clauses(sentence("no symbol goes with \"{0}\"", unicode::onOneLine(unicode::prefix(text, longest))),
                    nearest ? sentence("the nearest is \"{0}\"", *nearest) : "")};
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
    if (const auto writable = canWrite(output, console); !writable) return writable.failure();
    const auto [view, size] = grid(names);
    const Size sheet{size.width + 2 * margin, size.height + 2 * margin};
    const auto drawing = Drawing::open();
    if (!drawing) return drawing.failure();
    Scene scene = makeScene(view.containerBackground(background, ContainerBackgroundPlacement::widget), sheet, margin,
                            drawing->context(), drawing->symbols());

    // At a larger scale, the picture of all symbols would take a gigabyte of memory.
    constexpr std::size_t mostSharp = 1000;
    const double scale = names.size() <= mostSharp ? 2 : 1;
    const Picture picture{sheet, cornerRadius, {{{0, 0}, std::move(scene)}}};
    return drawing->write(picture, {.output = output, .scale = scale}, platform, console);
}

}  // namespace

Outcome<Done> symbols(const SymbolChoices& choices, const Platform& platform, Console& console) {
    const Symbols symbols;
    const Names names = symbols.search(choices.text);
    if (names.empty()) return noneFits(choices.text, symbols);
    if (choices.picture) return drawSheet(names, *choices.picture, platform, console);
    std::string lines;
    for (const std::string& name : names) lines += name + '\n';
    return writeOutput("-", lines, platform.files, console);
}

}  // namespace orvel::tools
