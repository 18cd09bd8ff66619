#include "tools/card/shown_card.h"

#include "authoring/designs.h"
#include "authoring/references.h"
#include "model/widget_spec_json.h"
#include "tools/core/input_output.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

bool isList(std::string_view json) {
    const auto first = json.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != json.npos && json[first] == '[';
}

Failure failure(const std::string& file, const DecodingFailure& failure) {
    return {displayName(file) + ":" + failure.position.text() + ": " + failure.message()};
}

// A draft may lack what a new design gets by itself. Nothing is limited, as with a stored design.
WidgetSpec draft(WidgetSpec::Fields fields, const Platform& platform) {
    const auto items = fields.items;
    const auto progress = fields.progress;
    WidgetSpec spec(std::move(fields), platform);
    spec.items = items;
    spec.progress = progress;
    return spec;
}

Outcome<std::optional<WidgetSpec>> readDesign(const std::string& file, const Platform& platform, Console& console) {
    auto text = readInput(file, console);
    if (!text) return text.failure();
    if (isList(*text)) {
        auto specs = WidgetSpecJSON::decodeList(*std::move(text));
        if (!specs) return failure(file, specs.failure());
        if (specs->empty()) return std::optional<WidgetSpec>();
        return std::optional(std::move(specs->front()));
    }
    auto fields = WidgetSpecJSON::decodeFields(*std::move(text));
    if (!fields) return failure(file, fields.failure());
    return std::optional(draft(*std::move(fields), platform));
}

Outcome<std::optional<WidgetSpec>> storedDesign(const std::string& reference, const Platform& platform) {
    auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    const auto index = findOne(*specs, reference);
    if (!index) return index.failure();
    return std::optional(std::move((*specs)[*index]));
}

}  // namespace

Outcome<ShownEntry> shownEntry(const DesignChoice& design, const Platform& platform, Console& console) {
    if (design.file || design.reference) {
        auto spec =
            design.file ? readDesign(*design.file, platform, console) : storedDesign(*design.reference, platform);
        if (!spec) return spec.failure();
        return ShownEntry{{platform.clock.now(), *std::move(spec)}};
    }
    std::optional<ShownEntry> shown;
    Provider().getTimeline(
        {}, [&](Timeline<WidgetEntry> timeline) { shown = {std::move(timeline.entries.front())}; }, platform);
    if (!shown->entry.spec)
        if (const auto designs = readDesigns(platform); !designs) shown->complaint = designs.failure().reason;
    return *std::move(shown);
}

View shownView(const ShownEntry& shown, const Platform& platform) {
    return OrvelWidget::content(shown.entry, platform);
}

Outcome<Done> unlessComplaint(const std::optional<std::string>& complaint) {
    if (complaint) return Failure{*complaint};
    return Done{};
}

std::string_view name(WidgetFamily family) {
    return family == WidgetFamily::systemSmall ? "small" : "medium";
}

}  // namespace orvel::tools
