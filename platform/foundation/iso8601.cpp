#include "platform/foundation/iso8601.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace orvel::iso8601 {
namespace {

using namespace std::chrono;

// Reads the fields of a text from left to right; once something doesn't match, nothing later does.
class Fields {
public:
    explicit Fields(std::string_view text) : rest_(text) {}

    int digits(std::size_t count, int most) {
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const char c = take();
            if (c < '0' || c > '9') matches_ = false;
            value = value * 10 + (c - '0');
        }
        if (value > most) matches_ = false;
        return matches_ ? value : 0;
    }
    void literal(char expected) {
        if (take() != expected) matches_ = false;
    }
    char take() {
        if (rest_.empty()) {
            matches_ = false;
            return '\0';
        }
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }
    // ".25" as 0.25, or 0 where no point follows.
    double fraction() {
        if (!rest_.starts_with('.')) return 0;
        rest_.remove_prefix(1);
        const std::size_t length = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        if (length == 0) fail();
        // As many digits as a double holds exactly; a date couldn't keep more.
        constexpr std::size_t most = 15;
        double digits = 0, unit = 1;
        for (const char c : rest_.substr(0, std::min(length, most))) {
            digits = digits * 10 + (c - '0');
            unit *= 10;
        }
        rest_.remove_prefix(length);
        return digits / unit;
    }
    bool atEnd() const { return rest_.empty(); }
    void fail() { matches_ = false; }
    bool matchedAll() const { return matches_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool matches_ = true;
};

year_month_day dateFields(Fields& fields) {
    const int y = fields.digits(4, 9999);
    fields.literal('-');
    const int m = fields.digits(2, 12);
    fields.literal('-');
    const int d = fields.digits(2, 31);
    const year_month_day day{year{y}, month{static_cast<unsigned>(m)}, std::chrono::day{static_cast<unsigned>(d)}};
    if (!day.ok()) fields.fail();
    return day;
}

seconds timeFields(Fields& fields) {
    const hours h{fields.digits(2, 23)};
    fields.literal(':');
    const minutes m{fields.digits(2, 59)};
    fields.literal(':');
    const seconds s{fields.digits(2, 60)};
    return h + m + s;
}

seconds offsetFields(Fields& fields) {
    const char sign = fields.take();
    if (sign == 'Z') return {};
    if (sign != '+' && sign != '-') fields.fail();
    const hours h{fields.digits(2, 23)};
    fields.literal(':');
    const minutes m{fields.digits(2, 59)};
    return sign == '-' ? -(h + m) : h + m;
}

}  // namespace

std::optional<Date> dateTime(std::string_view text, Fraction fraction) {
    Fields fields(text);
    const year_month_day day = dateFields(fields);
    fields.literal('T');
    const seconds time = timeFields(fields);
    const double part = fraction == Fraction::allowed ? fields.fraction() : 0;
    const seconds offset = offsetFields(fields);
    if (!fields.matchedAll()) return std::nullopt;
    const sys_seconds instant = sys_days{day} + time - offset;
    return Date::fromUnixTime(static_cast<double>(instant.time_since_epoch().count())).addingTimeInterval(part);
}

std::optional<year_month_day> fullDate(std::string_view text) {
    Fields fields(text);
    const year_month_day day = dateFields(fields);
    if (!fields.matchedAll()) return std::nullopt;
    return day;
}

std::optional<local_seconds> localDateTime(std::string_view text) {
    Fields fields(text);
    const year_month_day day = dateFields(fields);
    const char separator = fields.take();
    if (separator != 'T' && separator != ' ') fields.fail();
    const hours h{fields.digits(2, 23)};
    fields.literal(':');
    const minutes m{fields.digits(2, 59)};
    seconds s{0};
    if (!fields.atEnd()) {
        fields.literal(':');
        s = seconds{fields.digits(2, 59)};
    }
    if (!fields.matchedAll()) return std::nullopt;
    return local_days{day} + h + m + s;
}

std::string format(local_seconds time) {
    const local_days midnight = floor<days>(time);
    const year_month_day day{midnight};
    const hh_mm_ss clock{time - midnight};
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

std::string format(Date date, minutes offset) {
    const std::string text =
        format(local_seconds{seconds{static_cast<long long>(std::floor(date.unixTime()))} + offset});
    if (offset == minutes{0}) return text + "Z";
    const hh_mm_ss zone{abs(offset)};
    char suffix[16];
    std::snprintf(suffix, sizeof suffix, "%c%02d:%02d", offset < minutes{0} ? '-' : '+',
                  static_cast<int>(zone.hours().count()), static_cast<int>(zone.minutes().count()));
    return text + suffix;
}

}  // namespace orvel::iso8601
