#include "designer/countdown_json.h"

#include "format/countdown_math.h"
#include "platform/foundation/json_writer.h"

namespace orvel::designer {
namespace {

std::string textAt(Date instant, const WidgetSpec& spec, const Platform& platform) {
    const FixedClock clock(instant);
    const auto [value, unit] = CountdownMath::remaining(spec.targetISO8601, platform.with(clock));
    return unit.empty() ? value : value + ' ' + unit;
}

}  // namespace

std::string countdownJson(const WidgetSpec& spec, const Platform& platform) {
    constexpr double day = 86400;
    const Date now = platform.clock.now();
    const Date after{1e12};  // every target has come by then
    json::Writer writer;
    writer.beginObject().key("now").string(textAt(now, spec, platform));
    writer.key("tomorrow").string(textAt(now.addingTimeInterval(day), spec, platform));
    writer.key("end").string(textAt(after, spec, platform));
    return writer.endObject().finish().value_or("{}");
}

}  // namespace orvel::designer
