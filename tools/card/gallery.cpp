#include "tools/card/gallery.h"

#include <algorithm>
#include <vector>

#include "authoring/sample_designs.h"
#include "platform/foundation/iso8601.h"
#include "platform/host/card.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

constexpr double gap = 24;  // points between cards and around them

// A fixed time, so that the gallery looks the same every day.
constexpr std::string_view galleryInstant = "2026-01-01T09:00:00Z";

// One of each kind, and the empty state.
std::vector<std::optional<WidgetSpec>> samples(const Platform& platform) {
    std::vector<std::optional<WidgetSpec>> samples;
    for (const auto kind : WidgetSpec::allCases) {
        WidgetSpec::Fields fields = sampleDesign(kind);
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
