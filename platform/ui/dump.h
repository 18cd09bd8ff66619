// A view tree as JSON, just as it was built: nothing resolved, nothing laid out.
#pragma once

#include "platform/foundation/json_writer.h"
#include "platform/ui/view.h"

namespace orvel {

/// Every view is an object with "view" and its arguments; containers have "children", modifiers "content". An argument
/// that wasn't given is left out; an infinite length is the text "infinity", a number that JSON can't hold "nan".
void write(json::Writer& writer, const View& view);

}  // namespace orvel
