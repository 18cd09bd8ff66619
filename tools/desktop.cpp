#include "tools/desktop.h"

#include "platform/foundation/json_writer.h"
#include "platform/host/desktop.h"
#include "tools/terminal.h"
#include "widget/orvel_widget.h"

namespace orvel::tools {

Outcome<Done> desktop(WidgetFamily family, const Placement& placement, const Platform& platform, Console& console) {
    const auto notice = [&](const std::string& sentence) { console.err << "orvel: " << sentence << '\n'; };
    const auto shown = showOnDesktop(OrvelWidget().body(), OrvelWidgetBundle::info(),
                                     {.family = family, .placement = placement, .notice = notice}, platform);
    if (!shown) return Failure{shown.failure().reason};
    return Done{};
}

Outcome<Done> outputs(OutputsForm form, Console& console) {
    const auto outputs = listOutputs();
    if (!outputs) return Failure{outputs.failure().reason};
    if (form == OutputsForm::names) {
        for (const Output& output : *outputs) console.out << printable(output.name) << '\n';
        return Done{};
    }
    json::Writer writer;
    writer.beginArray();
    for (const Output& output : *outputs) {
        writer.beginObject().key("name").string(output.name);
        writer.key("widthPx").integer(output.widthPx).key("heightPx").integer(output.heightPx);
        writer.key("scale").number(output.scale).endObject();
    }
    writer.endArray();
    const auto json = writer.finish();
    if (!json) return Failure{"the outputs can't be written as JSON"};
    console.out << *json << '\n';
    return Done{};
}

}  // namespace orvel::tools
