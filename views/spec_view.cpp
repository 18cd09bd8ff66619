#include "views/spec_view.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "format/countdown_math.h"
#include "format/hex_color.h"
#include "platform/foundation/unicode.h"

namespace orvel {
namespace {

using enum HierarchicalShapeStyle;

constexpr std::size_t mostRows = 5;
constexpr double ringDiameter = 62;
constexpr double ringWidth = 8;

Color accent(const WidgetSpec& spec) {
    return HexColor::hexString(spec.accentHex).value_or(Color::accentColor);
}

View symbolRow(const WidgetSpec& spec) {
    return HStack(VerticalAlignment::center)({
        Image::systemName(spec.symbol).foregroundStyle(accent(spec)),
        Spacer(),
    });
}

View titleCaption(const WidgetSpec& spec) {
    return Text(unicode::uppercased(spec.title)).font(Font::system(9.5, Font::Weight::bold)).foregroundStyle(secondary);
}

View column(Children children) {
    return VStack(HorizontalAlignment::leading, 0)(std::move(children))
        .frame(FlexibleFrame{.maxWidth = infinity, .maxHeight = infinity, .alignment = Alignment::topLeading});
}

std::string headline(const WidgetSpec& spec, const Platform& platform) {
    if (spec.kind != WidgetSpec::Kind::countdown) return spec.primary.value_or("—");
    const auto [value, unit] = CountdownMath::remaining(spec.targetISO8601, platform);
    return unit.empty() ? value : value + " " + unit;
}

View headlineText(const WidgetSpec& spec, const Platform& platform) {
    return Text(headline(spec, platform))
        .font(Font::system(34, Font::Weight::heavy))
        .foregroundStyle(primary)
        .lineLimit(1)
        .minimumScaleFactor(0.5);
}

std::optional<View> secondaryLine(const WidgetSpec& spec) {
    if (!spec.secondary) return std::nullopt;
    return Text(*spec.secondary).font(Font::system(11)).foregroundStyle(secondary).lineLimit(1);
}

View valueLayout(const WidgetSpec& spec, const Platform& platform) {
    return column({
        symbolRow(spec),
        Spacer(0),
        headlineText(spec, platform),
        titleCaption(spec),
        secondaryLine(spec),
    });
}

// Hundredths rounded to the nearest integer, halves away from zero; limited to what the integer holds.
std::int64_t percent(double progress) {
    const double rounded = std::round(progress * 100);
    if (std::isnan(rounded)) return 0;
    if (rounded >= 0x1p63) return INT64_MAX;
    if (rounded < -0x1p63) return INT64_MIN;
    return static_cast<std::int64_t>(rounded);
}

View ring(const WidgetSpec& spec) {
    const double progress = spec.progress.value_or(0);
    return ZStack()({
                        Circle().stroke(quaternary, {.lineWidth = ringWidth}),
                        Circle()
                            .trim(0, progress)
                            .stroke(accent(spec), {.lineWidth = ringWidth, .lineCap = LineCap::round})
                            .rotationEffect({-90}),
                        Text(LocalizedStringKey::interpolation().integer(percent(progress)).literal("%"))
                            .font(Font::system(15, Font::Weight::heavy)),
                    })
        .frame(FixedFrame{.width = ringDiameter, .height = ringDiameter});
}

View progressLayout(const WidgetSpec& spec) {
    return column({
        symbolRow(spec),
        Spacer(0),
        ring(spec),
        Spacer(0),
        titleCaption(spec),
    });
}

struct Row {
    std::size_t position;
    std::string_view text;
};

std::vector<Row> firstRows(const WidgetSpec& spec) {
    std::vector<Row> rows;
    const std::size_t count = spec.items ? std::min(spec.items->size(), mostRows) : 0;
    for (std::size_t position = 0; position < count; ++position) rows.push_back({position, (*spec.items)[position]});
    return rows;
}

View listRow(const WidgetSpec& spec, const Row& row) {
    return HStack(VerticalAlignment::center, 8)({
        Circle().fill(accent(spec)).frame(FixedFrame{.width = 5, .height = 5}),
        Text(row.text).font(Font::system(12, Font::Weight::medium)).lineLimit(1),
    });
}

View listLayout(const WidgetSpec& spec) {
    return column({
        titleCaption(spec),
        Spacer(8),
        ForEach(
            firstRows(spec), [](const Row& row) { return row.position; },
            [&](const Row& row) { return listRow(spec, row); }),
        Spacer(0),
    });
}

}  // namespace

View WidgetSpecView::body(const Platform& platform) const {
    switch (spec_.kind) {
        case WidgetSpec::Kind::progress: return progressLayout(spec_);
        case WidgetSpec::Kind::list: return listLayout(spec_);
        case WidgetSpec::Kind::metric:
        case WidgetSpec::Kind::note:
        case WidgetSpec::Kind::countdown: break;
    }
    return valueLayout(spec_, platform);
}

}  // namespace orvel
