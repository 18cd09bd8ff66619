#include "tools/card/timeline.h"

#include "authoring/designs.h"
#include "model/widget_spec_json.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "widget/provider.h"

namespace orvel::tools {
namespace {

void write(json::Writer& writer, const WidgetEntry& entry) {
    writer.beginObject().key("date").number(entry.date.timeIntervalSinceReferenceDate).key("spec");
    if (entry.spec)
        WidgetSpecJSON::write(writer, *entry.spec);
    else
        writer.null();
    writer.endObject();
}

}  // namespace

Outcome<Done> timeline(const Platform& platform, Console& console) {
    const Provider provider;
    const TimelineProviderContext context;
    json::Writer writer;
    writer.beginObject().key("placeholder");
    write(writer, provider.placeholder(context, platform));
    writer.key("snapshot");
    provider.getSnapshot(
        context, [&](const WidgetEntry& entry) { write(writer, entry); }, platform);
    writer.key("timeline").beginObject();
    const auto completion = [&](const Timeline<WidgetEntry>& timeline) {
        writer.key("entries").beginArray();
        for (const WidgetEntry& entry : timeline.entries) write(writer, entry);
        writer.endArray();
        writer.key("reload").number(timeline.policy.date().timeIntervalSinceReferenceDate);
    };
    provider.getTimeline(context, completion, platform);
    const auto printed = printJson(writer.endObject().endObject().finish(), toTranslate("a design"), console);
    if (!printed) return printed.failure();
    const auto designs = readDesigns(platform);
    if (!designs) return designs.failure();
    return Done{};
}

}  // namespace orvel::tools
