#include "platform/host/hosted_card.h"

#include <algorithm>

namespace orvel {

HostedCard::HostedCard(WidgetConfiguration configuration, TimelineProviderContext context, const Platform& platform)
    : configuration_(std::move(configuration)),
      context_(context),
      platform_(platform),
      placeholder_(configuration_.placeholder(context_, platform_)),
      timeline_(configuration_.timeline(context_, platform_)),
      requested_(platform_.clock.now()),
      view_(due(requested_).view(platform_)) {}

bool HostedCard::reload() {
    timeline_ = configuration_.timeline(context_, platform_);
    requested_ = platform_.clock.now();
    return build(requested_);
}

bool HostedCard::look() {
    const Date now = platform_.clock.now();
    if (now >= timeline_.policy.date() || now < requested_) return reload();
    return build(now);
}

bool HostedCard::build(Date now) {
    View view = due(now).view(platform_);
    if (view == view_) return false;
    view_ = std::move(view);
    return true;
}

const HostedEntry& HostedCard::due(Date now) const {
    const auto& entries = timeline_.entries;
    if (entries.empty()) return placeholder_;
    const auto later = std::ranges::upper_bound(entries, now, {}, &HostedEntry::date);
    return later == entries.begin() ? entries.front() : *std::prev(later);
}

Date HostedCard::nextLook() const {
    const Date now = platform_.clock.now();
    Date next = nextWholeMinute(now);
    const auto orAt = [&](Date date) {
        if (date > now) next = std::min(next, date);
    };
    orAt(timeline_.policy.date());
    for (const HostedEntry& entry : timeline_.entries) orAt(entry.date);
    return next;
}

}  // namespace orvel
