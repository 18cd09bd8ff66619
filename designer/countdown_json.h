// What a countdown's card says as time goes by, as JSON: {"now":"12 days","tomorrow":"11 days","end":"Now"}.
#pragma once

#include <string>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// Without a target that is a date, each says "—".
std::string countdownJson(const WidgetSpec& spec, const Platform& platform);

}  // namespace orvel::designer
