// The terms between a widget's timeline provider and the host, which shows the widget.
#pragma once

#include <array>
#include <cmath>
#include <vector>

#include "platform/foundation/date.h"
#include "platform/ui/geometry.h"

namespace orvel {

enum class WidgetFamily { systemSmall, systemMedium };

inline constexpr std::array allWidgetFamilies{WidgetFamily::systemSmall, WidgetFamily::systemMedium};

/// Points. The family is the host's choice among those that a widget supports.
constexpr Size displaySize(WidgetFamily family) {
    return family == WidgetFamily::systemSmall ? Size{170, 170} : Size{364, 170};
}

/// When cards are looked at again. The reference date is a whole minute, and all current zones have offsets in whole
/// minutes.
inline Date nextWholeMinute(Date now) {
    return {(std::floor(now.timeIntervalSinceReferenceDate / 60) + 1) * 60};
}

/// What the host passes with a request.
struct TimelineProviderContext {
    WidgetFamily family = WidgetFamily::systemSmall;
    Size displaySize = orvel::displaySize(WidgetFamily::systemSmall);
    bool isPreview = false;
};

/// When the host asks for the next timeline: no earlier than the date.
class TimelineReloadPolicy {
public:
    static constexpr TimelineReloadPolicy after(Date date) { return TimelineReloadPolicy(date); }
    constexpr Date date() const { return date_; }

private:
    constexpr explicit TimelineReloadPolicy(Date date) : date_(date) {}
    Date date_;
};

/// Entries in the order of their dates, and when to ask again.
template <class Entry>
struct Timeline {
    std::vector<Entry> entries;
    TimelineReloadPolicy policy;
};

}  // namespace orvel
