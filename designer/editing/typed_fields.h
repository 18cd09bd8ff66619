// A design's fields as a person types them into the page.
#pragma once

#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

struct TypedField {
    std::string field;                ///< as in authoring/field_texts.h
    std::vector<std::string> values;  ///< one, or the rows of a list; empty: the field is absent
};

struct FieldRefusal {
    std::string field;
    std::string reason;
};

/// Changes the record, with the limits of its constructor. Fields whose text can't be taken keep their values, and are
/// returned.
std::vector<FieldRefusal> typeInto(WidgetSpec& spec, const std::vector<TypedField>& fields, const Platform& platform);

}  // namespace orvel::designer
