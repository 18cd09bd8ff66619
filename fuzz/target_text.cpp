// Any text as a countdown's target, against a second reading: days counted one month after the other, time in whole
// quarters of a second, and the zone's change worked out by hand.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <regex>
#include <string>
#include <vector>

#include "format/countdown_math.h"
#include "fuzz/expect.h"
#include "tests/support/fakes.h"

using namespace orvel;

namespace {

using Quarters = std::int64_t;  // of a second, since 2001-01-01T00:00:00Z

struct Zone {
    std::int64_t before;  // offsets in seconds
    std::int64_t change;  // in seconds since the same
    std::int64_t after;
};

bool isLeap(int year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

int daysOf(int month, int year) {
    if (month == 2) return isLeap(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

// Seconds since 2001-01-01T00:00:00 of the date in the first three groups.
std::optional<std::int64_t> midnight(const std::smatch& date) {
    const int year = std::stoi(date[1]);
    const int month = std::stoi(date[2]);
    const int day = std::stoi(date[3]);
    if (month < 1 || month > 12 || day < 1 || day > daysOf(month, year)) return std::nullopt;
    std::int64_t days = day - 1;
    for (int m = 1; m < month; ++m) days += daysOf(m, year);
    for (int y = 2001; y < year; ++y) days += isLeap(y) ? 366 : 365;
    for (int y = year; y < 2001; ++y) days -= isLeap(y) ? 366 : 365;
    return days * 86400;
}

// Whether the tenth character ends after ten bytes; absent where it takes Unicode's tables to tell.
std::optional<bool> tenthEnds(const std::string& text) {
    if (text.size() == 10 || static_cast<unsigned char>(text[10]) < 0x80) return true;
    for (const char* mark : {"\xCC\x81", "\xE2\x80\x8D", "\xEF\xB8\x8F"})  // acute, joiner, variation selector
        if (text.compare(10, std::string(mark).size(), mark) == 0) return false;
    return std::nullopt;
}

// The instants that the text may mean; nothing stands for none.
std::vector<std::optional<Quarters>> readings(const std::string& text, const Zone& zone) {
    static const std::regex instant("(\\d{4})-(\\d\\d)-(\\d\\d)T(\\d\\d):(\\d\\d):(\\d\\d)(Z|([+-])(\\d\\d):(\\d\\d))");
    static const std::regex day("(\\d{4})-(\\d\\d)-(\\d\\d)");
    std::smatch match;
    if (text.size() <= 25 && std::regex_match(text, match, instant)) {
        const auto field = [&](std::size_t group) { return match[group].matched ? std::stoi(match[group]) : 0; };
        if (const auto date = midnight(match);
            date && field(4) < 24 && field(5) < 60 && field(6) <= 60 && field(9) < 24 && field(10) < 60) {
            const int offset = (field(9) * 60 + field(10)) * 60 * (match[8] == "-" ? -1 : 1);
            return {4 * (*date + field(4) * 3600 + field(5) * 60 + field(6) - offset)};
        }
    }
    const std::string start = text.substr(0, 10);
    const auto date = std::regex_match(start, match, day) ? midnight(match) : std::nullopt;
    if (!date) return {std::nullopt};
    if (text.size() == 10) return {4 * *date};

    std::int64_t local = zone.change;  // skipped by the change, unless one of the offsets shows it
    if (*date - zone.after >= zone.change) local = *date - zone.after;
    if (*date - zone.before < zone.change) local = *date - zone.before;
    const auto ends = tenthEnds(text);
    if (!ends) return {4 * local, std::nullopt};
    return {*ends ? std::optional(4 * local) : std::nullopt};
}

std::pair<std::string, std::string> expected(std::optional<Quarters> target, Quarters now) {
    if (!target) return {"\u2014", ""};
    Quarters left = *target - now;
    if (left <= 0) return {"Now", ""};
    if (left < 4 * 7200) return {"1", "hour"};
    long count = 0;
    const bool inDays = left >= 4 * 86400;
    count = static_cast<long>(left / (inDays ? 4 * 86400 : 4 * 3600));
    if (inDays) return {std::to_string(count), count > 1 ? "days" : "day"};
    return {std::to_string(count), "hours"};
}

// Bytes as they are, or each as a character that dates are made of, or that follows one.
std::string text(FuzzedDataProvider& bytes) {
    const bool raw = bytes.ConsumeBool();
    const std::string rest = bytes.ConsumeRemainingBytesAsString();
    if (raw) return rest;
    static constexpr std::string_view characters = "0123456789-:TZ+. tz/201";
    static constexpr std::string_view longer[] = {"\xCC\x81", "\xE2\x80\x8D", "日", "-0", "-1", ":30", "2025-12-31"};
    std::string made;
    for (const char c : rest) {
        const std::size_t choice = static_cast<unsigned char>(c) % (characters.size() + std::size(longer));
        made += choice < characters.size() ? characters.substr(choice, 1) : longer[choice - characters.size()];
    }
    return made;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using std::chrono::seconds;
    FuzzedDataProvider bytes(data, size);
    const auto offset = [&] { return bytes.ConsumeIntegralInRange<std::int64_t>(-24 * 3600, 24 * 3600); };
    Zone zone{offset(), bytes.ConsumeIntegralInRange<std::int64_t>(-(1LL << 36), 1LL << 38), offset()};
    const auto ahead = bytes.ConsumeIntegralInRange<Quarters>(-4, 4 * 3 * 86400);
    const bool near = bytes.ConsumeBool();
    const bool changesNear = bytes.ConsumeBool();
    const std::string target = text(bytes);

    std::smatch match;
    const std::string start = target.substr(0, 10);
    if (static const std::regex day("(\\d{4})-(\\d\\d)-(\\d\\d)"); changesNear && std::regex_match(start, match, day))
        zone.change = midnight(match).value_or(0) + zone.change % (2 * 86400);
    const auto meant = readings(target, zone);
    const Quarters now = near ? meant.front().value_or(0) - ahead : ahead * 1'000'000;

    test::FakeMachine machine;
    const FixedClock clock(Date{static_cast<double>(now) / 4});
    const auto change =
        std::chrono::sys_seconds(seconds(zone.change + static_cast<std::int64_t>(Date::referenceUnixTime)));
    const test::TableZone table(seconds(zone.before), change, seconds(zone.after));
    const Platform platform{clock, machine.files, machine.accounts, table, machine.identities};
    const auto shown = CountdownMath::remaining(target, platform);
    bool agrees = false;
    for (const auto& reading : meant) agrees = agrees || shown == expected(reading, now);
    fuzz::expect(agrees, "both readings show the same");
    return 0;
}
