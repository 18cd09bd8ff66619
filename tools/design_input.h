// What a person or a script gives for a design's fields.
#pragma once

#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

/// A countdown's target to be stored. What the store itself understands stays as it is; "2026-12-24 18:00" is local
/// time,
/// "+3d" and "+5h" count from now, and all of these become a full time with the zone's offset.
Outcome<std::string> targetText(const std::string& text, const Platform& platform);

/// A finite number.
Outcome<double> progressNumber(const std::string& text);

/// The record of the constructor, which keeps 5 items and limits progress; the console is told when that loses
/// something.
WidgetSpec constructed(WidgetSpec::Fields fields, const Platform& platform, Console& console);

/// One record; id, createdAt, accentHex and symbol may be missing. "-" is standard input.
Outcome<WidgetSpec> readRecord(const std::string& file, const Platform& platform, Console& console);

/// Several "field=value" for one design, by the fields' names or those of the options (accent, target); each item is
/// one "item=text", and the given ones replace all. Nothing is limited or shortened.
Outcome<Done> assign(const std::vector<std::string>& assignments, WidgetSpec& spec, const Platform& platform);

/// Makes an optional field absent.
Outcome<Done> unset(const std::string& field, WidgetSpec& spec);

}  // namespace orvel::tools
