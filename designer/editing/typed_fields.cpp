#include "designer/editing/typed_fields.h"

#include "authoring/field_texts.h"
#include "model/widget_fields.h"

namespace orvel::designer {
namespace {

bool isOptional(std::string_view field) {
    return withWidgetField<bool>([&](const auto& row) { return row.name == field; },
                                 [](const auto& row) { return row.isOptional(); }, false);
}

Outcome<Done> typeField(const TypedField& typed, WidgetSpec& spec, const Platform& platform) {
    if (typed.values.empty() && isOptional(typed.field)) return unset(typed.field, spec);
    std::vector<Assignment> assignments;
    for (const std::string& value : typed.values)
        assignments.push_back({typed.field == "items" ? "item" : typed.field, value});
    if (typed.values.empty()) assignments.push_back({typed.field, ""});
    const auto assigned = assign(assignments, spec, platform);
    if (!assigned) return assigned.failure();
    if (typed.field == "progress") spec.progress = widget_limits::progress(spec.progress);
    if (typed.field == "items") spec.items = widget_limits::items(std::move(spec.items));
    return Done{};
}

}  // namespace

std::vector<FieldRefusal> typeInto(WidgetSpec& spec, const std::vector<TypedField>& fields, const Platform& platform) {
    std::vector<FieldRefusal> refusals;
    for (const TypedField& typed : fields) {
        WidgetSpec changed = spec;
        const auto done = typeField(typed, changed, platform);
        if (done)
            spec = std::move(changed);
        else
            refusals.push_back({typed.field, done.failure().reason});
    }
    return refusals;
}

}  // namespace orvel::designer
