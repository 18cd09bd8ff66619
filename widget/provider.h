// The timeline provider: the stored designs as timeline entries. It keeps nothing between requests; every request reads
// the store again and is answered before it returns, on the caller's thread.
#pragma once

#include <optional>
#include <utility>

#include "model/widget_spec.h"
#include "platform/foundation/function_ref.h"
#include "platform/foundation/platform.h"
#include "platform/host/timeline.h"

namespace orvel {

struct WidgetEntry {
    Date date;                       ///< when the entry was built; the host shows it from then on
    std::optional<WidgetSpec> spec;  ///< the first stored design; absent when there is none
};

class Provider {
public:
    /// Like the other two answers: the first stored design, for every family, size and preview.
    WidgetEntry placeholder(const TimelineProviderContext& context,
                            const Platform& platform = Platform::system()) const;

    /// The completion is called exactly once.
    void getSnapshot(const TimelineProviderContext& context, FunctionRef<void(WidgetEntry)> completion,
                     const Platform& platform = Platform::system()) const;

    /// One entry, and a reload an hour after the clock's reading once the store has been read.
    void getTimeline(const TimelineProviderContext& context, FunctionRef<void(Timeline<WidgetEntry>)> completion,
                     const Platform& platform = Platform::system()) const;
};

}  // namespace orvel
