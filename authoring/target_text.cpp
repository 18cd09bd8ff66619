#include "authoring/target_text.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>

#include "authoring/number_text.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

Failure wrong(const std::string& what) {
    return {what, Failure::Cause::request, "targetISO8601"};
}

// "+3d" or "+5h" as seconds.
std::optional<double> distance(std::string_view text) {
    if (!text.starts_with('+') || text.size() < 3 || text[1] == '-') return std::nullopt;
    const auto count = numberText(text.substr(1, text.size() - 2));
    if (!count || !(std::abs(*count) < 1e6)) return std::nullopt;
    if (text.back() == 'd') return *count * 86400;
    if (text.back() == 'h') return *count * 3600;
    return std::nullopt;
}

bool isStoredForm(std::string_view text) {
    return iso8601::dateTime(text) || iso8601::fullDate(text) || iso8601::fullDate(unicode::prefix(text, 10));
}

std::string zoned(Date instant, const TimeZone& zone) {
    using namespace std::chrono;
    const sys_seconds whole{seconds{static_cast<long long>(std::floor(instant.unixTime()))}};
    return iso8601::format(instant, floor<minutes>(zone.utcOffset(whole).value_or(seconds{0})));
}

}  // namespace

Outcome<std::string> targetText(const std::string& text, const Platform& platform) {
    if (const auto seconds = distance(text)) {
        const Date target = platform.clock.now().addingTimeInterval(*seconds);
        return zoned({std::ceil(target.timeIntervalSinceReferenceDate)}, platform.timeZone);
    }
    // A blank between date and time is how people write; with T and no zone, the text is kept for the store to
    // interpret.
    if (text.size() > 10 && text[10] == ' ') {
        if (const auto local = iso8601::localDateTime(text)) {
            if (const auto instant = instantOf(*local, platform.timeZone)) return zoned(*instant, platform.timeZone);
        }
        return wrong(sentence("target \"{0}\": there is no such time", unicode::onOneLine(text)));
    }
    if (isStoredForm(text)) return text;
    return wrong(
        sentence("target \"{0}\": a date is wanted, a date-time such as 2026-12-24T18:00:00Z or "
                 "\"2026-12-24 18:00\", or +3d or +5h",
                 unicode::onOneLine(text)));
}

}  // namespace orvel
