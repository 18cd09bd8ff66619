#include "tools/card_choices.h"

#include "model/widget_spec_json.h"
#include "tools/input_output.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {
namespace {

bool isList(std::string_view json) {
    const auto first = json.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != json.npos && json[first] == '[';
}

Failure failure(const std::string& file, const DecodingFailure& failure) {
    return {displayName(file) + ": " + failure.message()};
}

Outcome<std::optional<WidgetSpec>> readDesign(const std::string& file, Console& console) {
    auto text = readInput(file, console);
    if (!text) return text.failure();
    if (isList(*text)) {
        auto specs = WidgetSpecJSON::decodeList(*std::move(text));
        if (!specs) return failure(file, specs.failure());
        if (specs->empty()) return std::optional<WidgetSpec>();
        return std::optional(std::move(specs->front()));
    }
    auto spec = WidgetSpecJSON::decode(*std::move(text));
    if (!spec) return failure(file, spec.failure());
    return std::optional(*std::move(spec));
}

}  // namespace

Outcome<std::optional<WidgetSpec>> shownDesign(const std::optional<std::string>& design, const Platform& platform,
                                               Console& console) {
    if (design) return readDesign(*design, console);
    std::optional<WidgetSpec> spec;
    Provider().getTimeline(
        {}, [&](Timeline<WidgetEntry> timeline) { spec = std::move(timeline.entries.front().spec); }, platform);
    return spec;
}

Outcome<View> cardView(const CardChoices& choices, const Platform& platform, Console& console) {
    if (choices.design) {
        auto spec = readDesign(*choices.design, console);
        if (!spec) return spec.failure();
        return OrvelWidget::content({platform.clock.now(), *std::move(spec)}, platform);
    }
    const WidgetConfiguration configuration = OrvelWidgetBundle().body().front().body();
    const TimelineProviderContext context{choices.family, displaySize(choices.family), false};
    return configuration.timeline(context, platform).entries.front().view(platform);
}

std::string_view name(WidgetFamily family) {
    return family == WidgetFamily::systemSmall ? "small" : "medium";
}

}  // namespace orvel::tools
