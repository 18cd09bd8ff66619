#include "authoring/new_design.h"

#include <utility>

#include "authoring/field_texts.h"
#include "authoring/warnings.h"
#include "model/widget_spec_json.h"

namespace orvel {

NewDesign makeDesign(WidgetSpec::Fields fields, const Platform& platform) {
    auto losses = limit(fields);
    return {WidgetSpec(std::move(fields), platform), std::move(losses)};
}

Outcome<NewDesign> readDesign(std::string json, const Platform& platform) {
    auto fields = WidgetSpecJSON::decodeFields(json);
    if (!fields) {
        const DecodingFailure& failure = fields.failure();
        return Failure{failure.position.text() + ": " + failure.message(), Failure::Cause::circumstances, failure.key};
    }
    NewDesign design = makeDesign(*std::move(fields), platform);
    for (auto& [index, warning] : unknownMembers(std::move(json))) design.losses.push_back(std::move(warning));
    return design;
}

}  // namespace orvel
