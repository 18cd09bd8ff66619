#include "feeds/schedule.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using namespace std::chrono;

struct Unit {
    char letter;
    seconds length;
};

constexpr std::array units{Unit{'d', days{1}}, Unit{'h', hours{1}}, Unit{'m', minutes{1}}, Unit{'s', seconds{1}}};
constexpr seconds longestInterval = days{366};
constexpr int mostIntervals = 10;

std::optional<TimeOfDay> timeOfDay(std::string_view text) {
    const auto digits = [&](std::size_t at) {
        const bool areDigits = text[at] >= '0' && text[at] <= '9' && text[at + 1] >= '0' && text[at + 1] <= '9';
        return areDigits ? (text[at] - '0') * 10 + (text[at + 1] - '0') : 99;
    };
    if (text.size() != 5 || text[2] != ':' || digits(0) > 23 || digits(3) > 59) return std::nullopt;
    return TimeOfDay{hours{digits(0)} + minutes{digits(3)}};
}

Date nextDaily(TimeOfDay time, Date last, const TimeZone& zone) {
    const local_days today = floor<days>(localTime(last, zone));
    // A clock change may have moved today's behind `last`, or tomorrow's; never the day after that.
    for (const days ahead : {days{0}, days{1}, days{2}})
        if (const auto date = instantOf(today + ahead + time.sinceMidnight, zone); date && *date > last) return *date;
    return last.addingTimeInterval(duration<double>(days{1}).count());  // when the zone can't tell
}

double length(seconds interval) {
    return static_cast<double>(interval.count());
}

}  // namespace

std::optional<seconds> durationText(std::string_view text, seconds most) {
    seconds unit{1};
    for (const Unit& each : units)
        if (text.ends_with(each.letter)) {
            unit = each.length;
            text.remove_suffix(1);
            break;
        }
    long long count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc{} || end != text.data() + text.size() || count < 1 || count > most / unit)
        return std::nullopt;
    return count * unit;
}

Outcome<Every> everyText(const std::string& text) {
    if (const auto time = timeOfDay(text)) return Every(*time);
    if (const auto interval = durationText(text, longestInterval)) return Every(*interval);
    return Failure{sentence("\"{0}\": an interval from a second to 366 days is wanted, such as 60s, 5m, 2h or 1d, or a "
                            "time of day such as 07:30",
                            unicode::onOneLine(text)),
                   Failure::Cause::request};
}

std::string text(seconds duration) {
    for (const Unit& unit : units)
        if (duration % unit.length == seconds{0}) return std::to_string(duration / unit.length) + unit.letter;
    return {};
}

std::string text(const Every& every) {
    if (const auto* const interval = std::get_if<seconds>(&every)) return text(*interval);
    const auto time = std::get<TimeOfDay>(every).sinceMidnight;
    char clock[8];
    std::snprintf(clock, sizeof clock, "%02d:%02d", static_cast<int>(time / hours{1}),
                  static_cast<int>(time % hours{1} / minutes{1}));
    return clock;
}

namespace Schedule {

Date due(const Every& every, Date last, int failures, Date now, const TimeZone& zone) {
    if (last > now) return now;
    if (const auto* const time = std::get_if<TimeOfDay>(&every)) return nextDaily(*time, last, zone);
    const int intervals = failures > 4 ? mostIntervals : 1 << std::max(failures - 1, 0);  // 1, 1, 2, 4, 8, 10
    return last.addingTimeInterval(intervals * length(std::get<seconds>(every)));
}

Date planned(const Every& every, Date due, Date now) {
    const auto* const interval = std::get_if<seconds>(&every);
    if (!interval) return now;
    const double passed = std::floor(now.timeIntervalSince(due) / length(*interval));
    return due.addingTimeInterval(std::max(passed, 0.0) * length(*interval));
}

}  // namespace Schedule
}  // namespace orvel
