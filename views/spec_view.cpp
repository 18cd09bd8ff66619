#include "views/spec_view.h"

#include <utility>
#include <vector>

#include "format/hex_color.h"
#include "platform/foundation/unicode.h"
#include "views/card_words.h"

namespace orvel {
namespace {

using enum HierarchicalShapeStyle;

constexpr double ringDiameter = 62;
constexpr double ringWidth = 8;

Color accent(const WidgetSpec& spec) {
    return HexColor::hexString(spec.accentHex).value_or(Color::accentColor);
}

View column(Children children) {
    return VStack(HorizontalAlignment::leading, 0)(std::move(children))
        .frame(FlexibleFrame{.maxWidth = infinity, .maxHeight = infinity, .alignment = Alignment::topLeading});
}

View symbolRow(const WidgetSpec& spec) {
    return HStack(VerticalAlignment::center)({
        Image::systemName(spec.symbol).foregroundStyle(accent(spec)),
        Spacer(),
    });
}

View titleCaption(const CardWords& words) {
    return Text(unicode::uppercased(words.title))
        .font(Font::system(9.5, Font::Weight::bold))
        .foregroundStyle(secondary);
}

View headline(const CardWords& words) {
    return Text(words.headline.value_or(""))
        .font(Font::system(34, Font::Weight::heavy))
        .foregroundStyle(primary)
        .lineLimit(1)
        .minimumScaleFactor(0.5);
}

std::optional<View> secondaryLine(const CardWords& words) {
    if (!words.secondary) return std::nullopt;
    return Text(*words.secondary).font(Font::system(11)).foregroundStyle(secondary).lineLimit(1);
}

View valueLayout(const WidgetSpec& spec, const CardWords& words) {
    return column({
        symbolRow(spec),
        Spacer(0),
        headline(words),
        titleCaption(words),
        secondaryLine(words),
    });
}

View ring(const WidgetSpec& spec, const CardWords& words) {
    return ZStack()({
                        Circle().stroke(quaternary, {.lineWidth = ringWidth}),
                        Circle()
                            .trim(0, spec.progress.value_or(0))
                            .stroke(accent(spec), {.lineWidth = ringWidth, .lineCap = LineCap::round})
                            .rotationEffect({-90}),
                        Text(percentKey(words.percent.value_or(0))).font(Font::system(15, Font::Weight::heavy)),
                    })
        .frame(FixedFrame{.width = ringDiameter, .height = ringDiameter});
}

View progressLayout(const WidgetSpec& spec, const CardWords& words) {
    return column({
        symbolRow(spec),
        Spacer(0),
        ring(spec, words),
        Spacer(0),
        titleCaption(words),
    });
}

struct Row {
    std::size_t position;
    std::string_view text;
};

std::vector<Row> numbered(const std::vector<std::string>& texts) {
    std::vector<Row> rows;
    for (const std::string& text : texts) rows.push_back({rows.size(), text});
    return rows;
}

View listRow(const WidgetSpec& spec, const Row& row) {
    return HStack(VerticalAlignment::center, 8)({
        Circle().fill(accent(spec)).frame(FixedFrame{.width = 5, .height = 5}),
        Text(row.text).font(Font::system(12, Font::Weight::medium)).lineLimit(1),
    });
}

View listLayout(const WidgetSpec& spec, const CardWords& words) {
    return column({
        titleCaption(words),
        Spacer(8),
        ForEach(
            numbered(words.rows), [](const Row& row) { return row.position; },
            [&](const Row& row) { return listRow(spec, row); }),
        Spacer(0),
    });
}

}  // namespace

View WidgetSpecView::body(const Platform& platform) const {
    const CardWords words = cardWords(spec_, platform);
    switch (spec_.kind) {
        case WidgetKind::metric:
        case WidgetKind::note:
        case WidgetKind::countdown: return valueLayout(spec_, words);
        case WidgetKind::progress: return progressLayout(spec_, words);
        case WidgetKind::list: return listLayout(spec_, words);
    }
    return valueLayout(spec_, words);
}

}  // namespace orvel
