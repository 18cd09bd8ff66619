#include "tools/card/gallery.h"

#include <algorithm>
#include <vector>

#include "platform/foundation/iso8601.h"
#include "platform/host/card.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

constexpr double gap = 24;  // points between cards and around them

// The gallery's own moment, so that it looks the same on every day.
constexpr std::string_view galleryInstant = "2026-01-01T09:00:00Z";

WidgetSpec::Fields sampleFields(WidgetSpec::Kind kind) {
    using enum WidgetKind;
    switch (kind) {
        case metric:
            return {.title = "Active users",
                    .kind = kind,
                    .accentHex = "#0A84FF",
                    .symbol = "person.2.fill",
                    .primary = "42",
                    .secondary = "12 more than last week"};
        case progress:
            return {
                .title = "Reading goal", .kind = kind, .accentHex = "#30D158", .symbol = "book.fill", .progress = 0.38};
        case list:
            return {.title = "Groceries",
                    .kind = kind,
                    .accentHex = "#FF9F0A",
                    .symbol = "cart",
                    .items = std::vector<std::string>{"Oat milk", "Tomatoes", "Crème fraîche", "Sourdough bread",
                                                      "Dark chocolate"}};
        case note:
            return {.title = "Note to self",
                    .kind = kind,
                    .accentHex = "#FFD60A",
                    .symbol = "quote.bubble",
                    .primary = "Less, but better",
                    .secondary = "every day"};
        case countdown:
            return {.title = "To the release",
                    .kind = kind,
                    .accentHex = "#FF375F",
                    .symbol = "flag.fill",
                    .secondary = "code freeze a week before",
                    .targetISO8601 = "2026-01-13T18:00:00Z"};
    }
    return {.title = "", .kind = kind};
}

// One of each kind, and the empty state.
std::vector<std::optional<WidgetSpec>> samples(const Platform& platform) {
    std::vector<std::optional<WidgetSpec>> samples;
    for (const auto kind : WidgetSpec::allCases) {
        WidgetSpec::Fields fields = sampleFields(kind);
        fields.id = "sample";
        samples.emplace_back(WidgetSpec(std::move(fields), platform));
    }
    samples.emplace_back();
    return samples;
}

// Two designs to a row, each small and medium; the sheet is as wide as the widest row.
Picture sheet(const std::vector<std::optional<WidgetSpec>>& designs, const Drawing& drawing, const Platform& platform) {
    Picture picture{{}, cornerRadius, {}};
    Point at{gap, gap};
    const auto showOf = [&](const std::optional<WidgetSpec>& spec) {
        const View view = OrvelWidget::content({platform.clock.now(), spec}, platform);
        for (const WidgetFamily family : allWidgetFamilies) {
            picture.cards.push_back({at, drawing.scene(view, family)});
            at.x += displaySize(family).width + gap;
        }
    };
    for (std::size_t i = 0; i < designs.size(); i += 2) {
        at.x = gap;
        showOf(designs[i]);
        if (i + 1 < designs.size()) showOf(designs[i + 1]);
        picture.size.width = std::max(picture.size.width, at.x);
        at.y += displaySize(WidgetFamily::systemSmall).height + gap;
    }
    picture.size.height = at.y;
    return picture;
}

}  // namespace

Outcome<Done> gallery(const DrawingChoices& choices, const Platform& platform, Console& console) {
    if (const auto writable = canWrite(choices.output, console); !writable) return writable.failure();
    const auto drawing = Drawing::open();
    if (!drawing) return drawing.failure();
    const FixedClock clock(*iso8601::dateTime(galleryInstant));
    const Platform still = platform.with(clock);
    return drawing->write(sheet(samples(still), *drawing, still), choices, still, console);
}

}  // namespace orvel::tools
