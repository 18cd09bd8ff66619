// A shown widget: asks its provider for timelines, knows which entry is due, and builds that entry's view.
#pragma once

#include "platform/host/widget.h"

namespace orvel {

class HostedCard {
public:
    /// Asks for the placeholder, which is shown as long as the timeline has no entry, and then for the first timeline.
    HostedCard(WidgetConfiguration configuration, TimelineProviderContext context, const Platform& platform);

    /// Asks for a new timeline. True when the view has changed.
    bool reload();

    /// Builds the due entry's view again. Before that, asks for a new timeline if that is due, or if the clock was set
    /// back to before the last request. True when the view has changed.
    bool look();

    const View& view() const { return view_; }

    /// When to look again: at the next whole minute, or earlier when an entry or a request falls due.
    Date nextLook() const;

private:
    bool build(Date now);
    const HostedEntry& due(Date now) const;

    WidgetConfiguration configuration_;
    TimelineProviderContext context_;
    const Platform& platform_;
    HostedEntry placeholder_;
    Timeline<HostedEntry> timeline_;
    Date requested_;
    View view_;
};

}  // namespace orvel
