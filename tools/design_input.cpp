#include "tools/design_input.h"

#include <charconv>
#include <chrono>
#include <cmath>

#include "model/widget_spec_json.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"
#include "tools/input_output.h"
#include "tools/terminal.h"

namespace orvel::tools {
namespace {

Failure wrong(const std::string& what) {
    return {what, wrongUsage};
}

std::optional<double> number(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

// "+3d" or "+5h" as seconds.
std::optional<double> distance(std::string_view text) {
    if (!text.starts_with('+') || text.size() < 3 || text[1] == '-') return std::nullopt;
    const auto count = number(text.substr(1, text.size() - 2));
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

Outcome<Done> assignOne(const std::string& field, const std::string& value, WidgetSpec& spec,
                        const Platform& platform) {
    if (field == "id") {
        spec.id = value;
    } else if (field == "title") {
        spec.title = value;
    } else if (field == "kind") {
        const auto kind = kindFromRawValue(value);
        if (!kind) return wrong("kind=" + printable(value) + ": it is metric, progress, list, note or countdown");
        spec.kind = *kind;
    } else if (field == "accent" || field == "accentHex") {
        spec.accentHex = value;
    } else if (field == "symbol") {
        spec.symbol = value;
    } else if (field == "primary") {
        spec.primary = value;
    } else if (field == "secondary") {
        spec.secondary = value;
    } else if (field == "progress") {
        const auto progress = progressNumber(value);
        if (!progress) return progress.failure();
        spec.progress = *progress;
    } else if (field == "target" || field == "targetISO8601") {
        auto target = targetText(value, platform);
        if (!target) return target.failure();
        spec.targetISO8601 = *std::move(target);
    } else if (field == "createdAt") {
        const auto instant = iso8601::dateTime(value, iso8601::Fraction::allowed);
        if (!instant)
            return wrong("createdAt=" + printable(value) + ": it is a date-time such as 2026-01-31T09:00:00Z");
        spec.createdAt = *instant;
    } else {
        return wrong("no field is called " + printable(field));
    }
    return Done{};
}

}  // namespace

Outcome<std::string> targetText(const std::string& text, const Platform& platform) {
    if (const auto seconds = distance(text)) {
        const Date target = platform.clock.now().addingTimeInterval(*seconds);
        return zoned({std::ceil(target.timeIntervalSinceReferenceDate)}, platform.timeZone);
    }
    // A blank between date and time is a person's own way of writing; T without a zone is left as the store has it.
    if (text.size() > 10 && text[10] == ' ') {
        if (const auto local = iso8601::localDateTime(text)) {
            if (const auto instant = instantOf(*local, platform.timeZone)) return zoned(*instant, platform.timeZone);
        }
        return wrong("target " + printable(text) + ": no such time");
    }
    if (isStoredForm(text)) return text;
    return wrong("target " + printable(text) +
                 ": it is a date, a date-time such as 2026-12-24T18:00:00Z or \"2026-12-24 18:00\", or +3d or +5h");
}

Outcome<double> progressNumber(const std::string& text) {
    const auto value = number(text);
    if (!value || !std::isfinite(*value)) return wrong("progress " + printable(text) + ": it is a number from 0 to 1");
    return *value;
}

WidgetSpec constructed(WidgetSpec::Fields fields, const Platform& platform, Console& console) {
    const std::size_t items = fields.items ? fields.items->size() : 0;
    const auto progress = fields.progress;
    WidgetSpec spec(std::move(fields), platform);
    if (spec.items && spec.items->size() < items)
        console.err << "orvel: warning: " << items << " items, of which " << spec.items->size() << " are kept\n";
    if (spec.progress != progress)
        console.err << "orvel: warning: progress " << *progress << " is kept as " << *spec.progress << '\n';
    return spec;
}

Outcome<WidgetSpec> readRecord(const std::string& file, const Platform& platform, Console& console) {
    auto text = readInput(file, console);
    if (!text) return text.failure();
    auto fields = WidgetSpecJSON::decodeFields(*std::move(text));
    if (!fields) return Failure{displayName(file) + ": " + fields.failure().message()};
    return constructed(*std::move(fields), platform, console);
}

Outcome<Done> assign(const std::vector<std::string>& assignments, WidgetSpec& spec, const Platform& platform) {
    std::vector<std::string> items;
    for (const std::string& assignment : assignments) {
        const auto equals = assignment.find('=');
        if (equals == std::string::npos) return wrong(printable(assignment) + ": field=value is wanted");
        const std::string field = assignment.substr(0, equals);
        const std::string value = assignment.substr(equals + 1);
        if (field == "item") {
            items.push_back(value);
        } else if (const auto done = assignOne(field, value, spec, platform); !done) {
            return done.failure();
        }
    }
    if (!items.empty()) spec.items = std::move(items);
    return Done{};
}

Outcome<Done> unset(const std::string& field, WidgetSpec& spec) {
    if (field == "primary")
        spec.primary.reset();
    else if (field == "secondary")
        spec.secondary.reset();
    else if (field == "item" || field == "items")
        spec.items.reset();
    else if (field == "progress")
        spec.progress.reset();
    else if (field == "target" || field == "targetISO8601")
        spec.targetISO8601.reset();
    else
        return wrong("no optional field is called " + printable(field));
    return Done{};
}

}  // namespace orvel::tools
