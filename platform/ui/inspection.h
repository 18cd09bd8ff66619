// Describes a card as JSON: the view tree as it was built, and the marks that it draws.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/json_writer.h"
#include "platform/ui/scene.h"

namespace orvel {

/// The tree before its layout. Each view is an object with "view" and its arguments; containers have "children",
/// modifiers "content". An argument that wasn't given is left out; an infinite length is the text "infinity", a number
/// that JSON can't hold "nan".
void write(json::Writer& writer, const View& view);

/// {"family":…,"size":[…],"background":…,"tree":{…},"marks":[…]}. Absent when a text of it is not valid UTF-8.
std::optional<std::string> inspection(std::string_view family, const View& view, const Scene& scene);

}  // namespace orvel
