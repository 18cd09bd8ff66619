#include "platform/foundation/iso8601.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/commands.h"
#include "tools/input_output.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

constexpr double gap = 24;  // points between cards and around them

// The gallery's own moment, so that it looks the same on every day.
constexpr std::string_view galleryInstant = "2026-01-01T09:00:00Z";

std::vector<std::optional<WidgetSpec>> sampleDesigns(const Platform& platform) {
    using enum WidgetSpec::Kind;
    const auto design = [&](WidgetSpec::Fields fields) {
        fields.id = "sample";
        return WidgetSpec(std::move(fields), platform);
    };
    return {
        design({.title = "Active users",
                .kind = metric,
                .accentHex = "#0A84FF",
                .symbol = "person.2.fill",
                .primary = "42",
                .secondary = "12 more than last week"}),
        design({.title = "Reading goal",
                .kind = progress,
                .accentHex = "#30D158",
                .symbol = "book.fill",
                .progress = 0.38}),
        design({.title = "Groceries",
                .kind = list,
                .accentHex = "#FF9F0A",
                .symbol = "cart",
                .items = std::vector<std::string>{"Oat milk", "Tomatoes", "Crème fraîche", "Sourdough bread",
                                                  "Dark chocolate"}}),
        design({.title = "Note to self",
                .kind = note,
                .accentHex = "#FFD60A",
                .symbol = "quote.bubble",
                .primary = "Less, but better",
                .secondary = "every day"}),
        design({.title = "To the release",
                .kind = countdown,
                .accentHex = "#FF375F",
                .symbol = "flag.fill",
                .secondary = "code freeze a week before",
                .targetISO8601 = "2026-01-13T18:00:00Z"}),
        std::nullopt,
    };
}

}  // namespace

Outcome<Done> gallery(const DrawingChoices& drawing, const Platform& platform, Console& console) {
    const auto format = formatOf(drawing.output);
    if (!format) return format.failure();
    const FixedClock clock(*iso8601::dateTime(galleryInstant));
    const Platform still{clock, platform.files, platform.accounts, platform.timeZone, platform.identities};

    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    const auto renderer = openRenderer();
    if (!renderer) return renderer.failure();

    // Two designs to a row, each small and medium.
    Picture picture{{}, cornerRadius, {}};
    Point at{gap, gap};
    bool startsRow = true;
    for (const auto& spec : sampleDesigns(still)) {
        const View view = OrvelWidget::content({clock.now(), spec}, still);
        for (const WidgetFamily family : allWidgetFamilies) {
            picture.cards.push_back(
                {at, cardScene(view, family, {(*renderer)->text(), localizer}, (*renderer)->symbols())});
            at.x += displaySize(family).width + gap;
        }
        picture.size = {at.x, at.y + displaySize(WidgetFamily::systemSmall).height + gap};
        startsRow = !startsRow;
        if (startsRow) at = {gap, picture.size.height};
    }

    const auto bytes = encoded(picture, *format, drawing.scale, clock.now(), **renderer);
    if (!bytes) return bytes.failure();
    return writeOutput(drawing.output, *bytes, platform.files, console);
}

}  // namespace orvel::tools
